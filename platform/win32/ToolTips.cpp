#include "platform/win32/ToolTips.h"

#include "platform/win32/FormCore.h"
#include "platform/win32/NativeControl.h"

#include <commctrl.h>

namespace tollvane::win32 {

namespace {
constexpr int kWidth = 320;       // design units; longer texts break into lines
constexpr int kShownFor = 15'000; // milliseconds, time enough to read two sentences
} // namespace

void ToolTips::create() {
    window_ = CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr,
                              WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0, 0, 0, 0, form_.window(),
                              nullptr, form_.ui().instance(), nullptr);
    SendMessageA(window_, TTM_SETMAXTIPWIDTH, 0, scaled(kWidth, form_.dpi()));
    SendMessageA(window_, TTM_SETDELAYTIME, TTDT_AUTOPOP, kShownFor);
}

void ToolTips::set(UINT flags, UINT_PTR id, HWND owner, const RECT& area, const char* text) {
    TOOLINFOA tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = flags;
    tool.hwnd = owner;
    tool.uId = id;
    tool.rect = area;
    // The system copies the text, whatever its declaration says.
    tool.lpszText = const_cast<char*>(text);
    auto* const info = reinterpret_cast<LPARAM*>(&tool);
    SendMessageA(window_, TTM_DELTOOLA, 0, reinterpret_cast<LPARAM>(info));
    if (*text) {
        SendMessageA(window_, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(info));
    }
}

void ToolTips::mouse(const MSG& message) const {
    if (window_) {
        SendMessageA(window_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&message));
    }
}

void ToolTips::update(const NativeControl& control) {
    if (!form_.window() || !control.window() || (!window_ && control.toolTipText().empty())) {
        return;
    }
    if (!window_) {
        create();
    }
    const char* text = control.isShown() ? control.toolTipText().c_str() : "";
    const auto id = reinterpret_cast<UINT_PTR>(control.window());
    set(TTF_IDISHWND, id, form_.window(), RECT{}, text);
    set(0, reinterpret_cast<UINT_PTR>(&control), form_.window(),
        form_.pixels(control.placeInForm()), text);
}

} // namespace tollvane::win32
