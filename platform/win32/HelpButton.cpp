#include "platform/win32/HelpButton.h"

#include "platform/win32/Ui.h"

#include <commctrl.h>

#include <array>
#include <cstring>

namespace tollvane::win32 {

namespace {

constexpr UINT_PTR kSubclass = 1;

bool isDialog(HWND window) {
    std::array<char, 8> name{};
    GetClassNameA(window, name.data(), static_cast<int>(name.size()));
    return std::strcmp(name.data(), "#32770") == 0;
}

} // namespace

HelpButton::HelpButton(Ui& ui, const Message& message) : ui_(ui), message_(message) {
    if (message_.help) {
        waiting_ = this;
        hook_ = SetWindowsHookExA(WH_CBT, &activating, nullptr, GetCurrentThreadId());
    }
}

HelpButton::~HelpButton() {
    unhook();
    if (box_) {
        RemoveWindowSubclass(box_, &received, kSubclass);
    }
}

void HelpButton::unhook() {
    if (hook_) {
        UnhookWindowsHookEx(hook_);
        hook_ = nullptr;
        waiting_ = nullptr;
    }
}

LRESULT CALLBACK HelpButton::activating(int code, WPARAM window, LPARAM about) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    const auto activated = reinterpret_cast<HWND>(window);
    if (code == HCBT_ACTIVATE && waiting_ && isDialog(activated)) {
        waiting_->attach(activated);
    }
    return CallNextHookEx(nullptr, code, window, about);
}

void HelpButton::attach(HWND box) {
    unhook();
    box_ = box;
    SetWindowSubclass(box_, &received, kSubclass, reinterpret_cast<DWORD_PTR>(this));
}

LRESULT CALLBACK HelpButton::received(HWND window, UINT message, WPARAM first, LPARAM second,
                                      UINT_PTR /*id*/, DWORD_PTR self) {
    auto& button = *reinterpret_cast<HelpButton*>(self); // NOLINT(performance-no-int-to-ptr)
    if (message == WM_HELP || (message == WM_COMMAND && LOWORD(first) == IDHELP)) {
        button.ui_.guarded([&button] { button.message_.help(button.message_); });
        return TRUE;
    }
    if (message == WM_NCDESTROY) {
        button.box_ = nullptr;
        RemoveWindowSubclass(window, &received, kSubclass);
    }
    return DefSubclassProc(window, message, first, second);
}

} // namespace tollvane::win32
