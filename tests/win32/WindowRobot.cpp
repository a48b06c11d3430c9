#include "tests/win32/WindowRobot.h"

#include "platform/win32/MessagePump.h"
#include "platform/win32/SystemText.h"
#include "tests/desktop/FakeClock.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstring>
#include <stdexcept>

namespace tollvane::test {

using win32::Win32Form;

namespace {

constexpr UINT kWatchInterval = 10;       // milliseconds
constexpr std::uint64_t kPatience = 5000; // milliseconds until a state must have come
constexpr BYTE kKeyIsDown = 0x80;

/// A timer of its own: once it rings, every timer that was due before it has fired, however late a
/// busy machine delivers them.
class Alarm {
public:
    explicit Alarm(int milliseconds)
        : timer_(SetTimer(nullptr, 0, static_cast<UINT>(milliseconds), ring)) {
        if (timer_ == 0) {
            throw std::runtime_error("no timer for the alarm");
        }
        lastRung = 0; // the number may be that of an earlier one
    }
    Alarm(const Alarm&) = delete;
    Alarm& operator=(const Alarm&) = delete;
    ~Alarm() { KillTimer(nullptr, timer_); }

    bool rang() const { return lastRung == timer_; }

private:
    static void CALLBACK ring(HWND /*window*/, UINT /*message*/, UINT_PTR timer, DWORD /*time*/) {
        lastRung = timer;
    }

    // The callback is told no more than the timer's number.
    static inline UINT_PTR lastRung = 0;
    UINT_PTR timer_;
};

win32::NativeControl& nativeOf(Control& control) {
    return dynamic_cast<win32::NativeControl&>(control);
}

LPARAM at(POINT place) {
    return MAKELPARAM(place.x, place.y);
}

/// The state of the keyboard while some keys of `shift` are held.
class HeldKeys {
public:
    explicit HeldKeys(int shift) {
        GetKeyboardState(before_.data());
        auto state = before_;
        hold(state, (shift & shiftmask::shift) != 0, VK_SHIFT, VK_LSHIFT);
        hold(state, (shift & shiftmask::control) != 0, VK_CONTROL, VK_LCONTROL);
        hold(state, (shift & shiftmask::alt) != 0, VK_MENU, VK_LMENU);
        SetKeyboardState(state.data());
    }
    HeldKeys(const HeldKeys&) = delete;
    HeldKeys& operator=(const HeldKeys&) = delete;
    ~HeldKeys() { SetKeyboardState(before_.data()); }

private:
    using State = std::array<BYTE, 256>;
    static void hold(State& state, bool down, int key, int leftKey) {
        const BYTE value = down ? kKeyIsDown : 0;
        state[static_cast<std::size_t>(key)] = value;
        state[static_cast<std::size_t>(leftKey)] = value;
    }
    State before_{};
};

std::optional<POINT> backgroundOf(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    for (POINT place{1, client.bottom - 1}; place.y > 0; --place.y) {
        if (ChildWindowFromPointEx(window, place, CWP_SKIPINVISIBLE) == window) {
            return place;
        }
    }
    return std::nullopt;
}

} // namespace

WindowRobot::WindowRobot(WindowForms& forms, FakeClock& clock)
    : forms_(forms), clock_(clock),
      watch_(CreateWindowExA(0, "STATIC", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr,
                             nullptr)) {
    SetWindowLongPtrA(watch_.get(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetTimer(watch_.get(), 1, kWatchInterval, &rang);
}

WindowRobot::~WindowRobot() = default;

Win32Form* WindowRobot::formOf(HWND window) {
    return reinterpret_cast<Win32Form*>(GetWindowLongPtrA(window, GWLP_USERDATA));
}

LPARAM WindowRobot::keyInfo(UINT key) {
    return static_cast<LPARAM>(1U | MapVirtualKeyA(key, MAPVK_VK_TO_VSC) << 16);
}

void CALLBACK WindowRobot::rang(HWND window, UINT /*message*/, UINT_PTR /*timer*/, DWORD /*time*/) {
    reinterpret_cast<WindowRobot*>(GetWindowLongPtrA(window, GWLP_USERDATA))->lookAround();
}

void WindowRobot::lookAround() {
    const auto& modals = forms_.ui().modalForms();
    if (modals.size() > modalsFollowed_) {
        Win32Form* const form = formOf(modals.back()->window());
        if (form->isOpen()) {
            followModalPlan(*form);
        }
    }
    GUITHREADINFO thread{};
    thread.cbSize = sizeof thread;
    GetGUIThreadInfo(GetCurrentThreadId(), &thread);
    const bool inMenu = (thread.flags & GUI_INMENUMODE) != 0;
    if (inMenu && !std::exchange(inPopUp_, true)) {
        actInPopUp(forms_.ui().formInFront()->window());
    }
    inPopUp_ = inMenu;
}

void WindowRobot::followModalPlan(Form& form) {
    ++modalsFollowed_;
    if (modalPlans_.empty()) {
        ADD_FAILURE() << "nobody planned what happens while a modal form is open";
    } else {
        const auto plan = modalPlans_.front();
        modalPlans_.pop_front();
        plan(form);
        settle();
        if (form.isOpen()) {
            ADD_FAILURE() << "the plan left a modal form open: " << form.caption();
        }
    }
    form.close();
    --modalsFollowed_;
}

void WindowRobot::settle() {
    // Timers run only while time is let pass, however long the machine takes over a key.
    MSG message{};
    while (PeekMessageA(&message, nullptr, 0, WM_TIMER - 1, PM_REMOVE) ||
           PeekMessageA(&message, nullptr, WM_TIMER + 1, UINT_MAX, PM_REMOVE)) {
        win32::dispatch(forms_.ui(), message);
    }
}

bool WindowRobot::waitUntil(const std::function<bool()>& condition) {
    const std::uint64_t end = GetTickCount64() + kPatience;
    settle();
    while (!condition()) {
        if (GetTickCount64() > end) {
            return false;
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, kWatchInterval, QS_ALLINPUT);
        settle();
    }
    return true;
}

Win32Form* WindowRobot::reach(Form& form) {
    auto& window = dynamic_cast<Win32Form&>(form);
    if (!window.isOpen() || !IsWindowEnabled(window.window())) {
        return nullptr;
    }
    inPopUp_ = false;
    if (GetActiveWindow() != window.window()) {
        comeBackTo(form);
    }
    return &window;
}

void WindowRobot::stroke(int keyCode, int shift) {
    const HeldKeys held(shift);
    const bool alt = (shift & shiftmask::alt) != 0;
    const bool system = alt && !(shift & shiftmask::control);
    const auto key = static_cast<WPARAM>(keyCode);
    const LPARAM info = keyInfo(static_cast<UINT>(keyCode)) | (alt ? 1L << 29 : 0L);
    const HWND target = GetFocus() ? GetFocus() : GetActiveWindow();
    if (!target) {
        ADD_FAILURE() << "no window takes keys";
        return;
    }
    PostMessageA(target, system ? WM_SYSKEYDOWN : WM_KEYDOWN, key, info);
    settle();
    if (const HWND now = GetFocus()) {
        PostMessageA(now, system ? WM_SYSKEYUP : WM_KEYUP, key, info | 0xC0000000);
        settle();
    }
}

void WindowRobot::inputMethod(char character) {
    const std::wstring wide = win32::widened({&character, 1});
    PostMessageA(GetFocus(), WM_KEYDOWN, VK_PACKET, MAKELPARAM(1, wide.front()));
    settle();
}

void WindowRobot::typeText(std::string_view text) {
    for (const char character : text) {
        switch (character) {
        case '\b': stroke(VK_BACK, 0); continue;
        case '\r': stroke(VK_RETURN, 0); continue;
        case '\x1b': stroke(VK_ESCAPE, 0); continue;
        default: break;
        }
        const SHORT key = VkKeyScanA(character);
        if (key == -1 || static_cast<unsigned char>(character) >= 0x80) {
            inputMethod(character);
        } else {
            stroke(LOBYTE(key), HIBYTE(key) & shiftmask::shift);
        }
    }
}

void WindowRobot::key(int keyCode, int shift) {
    stroke(keyCode, shift);
}

void WindowRobot::tab() {
    stroke(VK_TAB, 0);
}

void WindowRobot::shiftTab() {
    stroke(VK_TAB, shiftmask::shift);
}

void WindowRobot::accessKey(char letter) {
    stroke(LOBYTE(VkKeyScanA(letter)), shiftmask::alt);
}

void WindowRobot::mouseClick(HWND window, POINT place) {
    PostMessageA(window, WM_LBUTTONDOWN, MK_LBUTTON, at(place));
    settle();
    if (IsWindowEnabled(window)) {
        PostMessageA(window, WM_LBUTTONUP, 0, at(place));
        settle();
    }
}

void WindowRobot::click(Form& form, std::string_view control, int index) {
    Win32Form* const reached = reach(form);
    if (!reached) {
        return;
    }
    const win32::NativeControl& native = nativeOf(form.find(control, index));
    RECT area{};
    GetClientRect(native.window(), &area);
    // The right end of a text box lies behind its text.
    const bool text = native.kind() == ControlKind::textBox;
    POINT place{text ? area.right - 3 : area.right / 2, area.bottom / 2};
    HWND target = native.window();
    // Labels, frames and disabled controls leave the mouse to the form.
    if (!native.takesFocus() || !native.isShownAndEnabled()) {
        MapWindowPoints(target, reached->window(), &place, 1);
        target = reached->window();
    }
    mouseClick(target, place);
}

void WindowRobot::doubleClickBackground(Form& form) {
    Win32Form* const reached = reach(form);
    const auto place = reached ? backgroundOf(reached->window()) : std::nullopt;
    if (place) {
        mouseClick(reached->window(), *place);
        PostMessageA(reached->window(), WM_LBUTTONDBLCLK, MK_LBUTTON, at(*place));
        PostMessageA(reached->window(), WM_LBUTTONUP, 0, at(*place));
        settle();
    }
}

void WindowRobot::chooseItem(Form& form, std::string_view comboBox, int entry) {
    if (!reach(form)) {
        return;
    }
    click(form, comboBox, -1);
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    const HWND combo = nativeOf(form.find(comboBox, -1)).window();
    if (!GetComboBoxInfo(combo, &info) || !SendMessageA(combo, CB_GETDROPPEDSTATE, 0, 0)) {
        return;
    }
    SendMessageA(info.hwndList, LB_SETTOPINDEX, static_cast<WPARAM>(entry), 0);
    RECT item{};
    SendMessageA(info.hwndList, LB_GETITEMRECT, static_cast<WPARAM>(entry),
                 reinterpret_cast<LPARAM>(&item));
    const POINT place{(item.left + item.right) / 2, (item.top + item.bottom) / 2};
    PostMessageA(info.hwndList, WM_MOUSEMOVE, 0, at(place));
    mouseClick(info.hwndList, place);
}

void WindowRobot::fillClipboard(std::string_view text) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
    auto* const bytes = static_cast<char*>(GlobalLock(memory));
    std::memcpy(bytes, text.data(), text.size());
    bytes[text.size()] = '\0';
    GlobalUnlock(memory);
    OpenClipboard(watch_.get());
    EmptyClipboard();
    SetClipboardData(CF_TEXT, memory);
    CloseClipboard();
}

void WindowRobot::paste(std::string_view text) {
    fillClipboard(text);
    PostMessageA(GetFocus(), WM_PASTE, 0, 0);
    settle();
}

void WindowRobot::pasteWithKeys(std::string_view text) {
    fillClipboard(text);
    stroke('V', shiftmask::control);
}

void WindowRobot::planModal(std::function<void(Form& form)> plan) {
    modalPlans_.push_back(std::move(plan));
}

void WindowRobot::closeBox(Form& form) {
    if (const Win32Form* const reached = reach(form)) {
        PostMessageA(reached->window(), WM_SYSCOMMAND, SC_CLOSE, 0);
        settle();
    }
}

void WindowRobot::setWindowState(Form& form, WindowState state) {
    if (const Win32Form* const reached = reach(form)) {
        const int command = state == WindowState::minimised   ? SW_MINIMIZE
                            : state == WindowState::maximised ? SW_MAXIMIZE
                                                              : SW_RESTORE;
        ShowWindow(reached->window(), command);
        settle();
    }
}

void WindowRobot::dragCorner(Form& form, int right, int down) {
    const Win32Form* const reached = reach(form);
    if (!reached || !(GetWindowLongA(reached->window(), GWL_STYLE) & WS_THICKFRAME)) {
        return;
    }
    const int dpi = win32::windowDpi(reached->window());
    RECT frame{};
    GetWindowRect(reached->window(), &frame);
    SetWindowPos(reached->window(), nullptr, 0, 0,
                 frame.right - frame.left + win32::scaled(right, dpi),
                 frame.bottom - frame.top + win32::scaled(down, dpi),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    settle();
}

void WindowRobot::leaveForAnotherProgram() {
    if (!other_) {
        other_.emplace();
    }
    settle();
    SetForegroundWindow(other_->window());
    EXPECT_TRUE(waitUntil([] { return GetActiveWindow() == nullptr; }))
        << "the other program's window did not become the active one";
}

void WindowRobot::comeBackTo(Form& form) {
    const HWND window = dynamic_cast<Win32Form&>(form).window();
    // Asked again and again: the window manager may be busy with the window that is left.
    EXPECT_TRUE(waitUntil([window] {
        return GetActiveWindow() == window || (SetForegroundWindow(window), false);
    })) << "the form did not become the active window";
}

void WindowRobot::letTimePass(int milliseconds) {
    clock_.advance(static_cast<std::uint64_t>(milliseconds));
    const Alarm alarm(milliseconds);
    win32::pumpWhile(forms_.ui(), [&alarm] { return !alarm.rang(); });
}

} // namespace tollvane::test
