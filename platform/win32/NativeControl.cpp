#include "platform/win32/NativeControl.h"

namespace tollvane::win32 {

NativeControl::NativeControl(FormCore& form, const ControlDescription& description)
    : visible_(description.visible), bold_(description.bold), tag_(description.tag),
      toolTip_(description.toolTip), fore_(defaultForeColour(description.kind)),
      back_(defaultBackColour(description.kind)), bounds_(description.at), form_(form),
      name_(description.name), index_(description.index), kind_(description.kind),
      follow_(description.follow), causesValidation_(description.causesValidation) {}

const std::string& NativeControl::captionText() const {
    static const std::string none;
    return none;
}

void NativeControl::createWindow(const char* className, const char* text, DWORD style,
                                 DWORD extended) {
    const DWORD shown = visible_ ? WS_VISIBLE : 0;
    window_ = CreateWindowExA(extended, className, text, WS_CHILD | WS_CLIPSIBLINGS | shown | style,
                              0, 0, 0, 0, form_.window(), nullptr, form_.ui().instance(), nullptr);
    if (!window_) {
        throw Error(static_cast<long>(GetLastError()), name_, "The control cannot be created.");
    }
    SetWindowLongPtrA(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    native_ = reinterpret_cast<WNDPROC>( // NOLINT(performance-no-int-to-ptr)
        SetWindowLongPtrA(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&procedure)));
    applyFont();
    place();
    form_.toolTips.update(*this);
}

LRESULT CALLBACK NativeControl::procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    auto* const control = reinterpret_cast<NativeControl*>( // NOLINT(performance-no-int-to-ptr)
        GetWindowLongPtrA(window, GWLP_USERDATA));
    LRESULT answer = 0;
    control->form_.ui().guarded([&] { answer = control->received(message, first, second); });
    if (message == WM_NCDESTROY) {
        control->forgetWindow();
    }
    return answer;
}

LRESULT NativeControl::native(UINT message, WPARAM first, LPARAM second) const {
    return window_ ? CallWindowProcA(native_, window_, message, first, second) : 0;
}

LRESULT NativeControl::send(UINT message, WPARAM first, LPARAM second) const {
    return window_ ? SendMessageA(window_, message, first, second) : 0;
}

LRESULT NativeControl::received(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        return form_.keys.keyDown(this, first, message == WM_SYSKEYDOWN)
                   ? handle(message, first, second)
                   : 0;
    case WM_CHAR: form_.keys.character(this, first, second); return 0;
    case WM_SYSCHAR: return form_.keys.altCharacter(first) ? 0 : handle(message, first, second);
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN: return mouseDown() ? handle(message, first, second) : 0;
    case WM_SETFOCUS: {
        const LRESULT answer = handle(message, first, second);
        form_.focus.cameTo(*this);
        return answer;
    }
    default: break;
    }
    if (message == form_.ui().controlNameMessage()) {
        const std::string index = index_ < 0 ? "" : "(" + std::to_string(index_) + ")";
        return answerControlName(name_ + index, first, second);
    }
    return handle(message, first, second);
}

LRESULT NativeControl::handle(UINT message, WPARAM first, LPARAM second) {
    return native(message, first, second);
}

bool NativeControl::mouseDown() {
    if (!takesFocus()) {
        return true;
    }
    // The focus moves before the system's control sees the click, so that a refused validation
    // leaves no half-pressed button. When a handler asked the user something, the mouse button has
    // long been let go, and the click is over.
    const unsigned before = form_.ui().modalsSoFar();
    const bool arrived = form_.focus.leaveTo(*this);
    if (form_.ui().modalsSoFar() != before) {
        return false;
    }
    if (form_.focus.wasSentBack() && kind() == ControlKind::button && canTakeFocus()) {
        press(); // the system's button would take the focus first, and lose its click with it
    }
    return arrived;
}

void NativeControl::raise(const std::function<void()>& handler) {
    if (handler) {
        form_.ui().guarded(handler);
    }
}

void NativeControl::place() {
    if (window_) {
        const RECT at = form_.pixels(bounds_);
        SetWindowPos(window_, nullptr, at.left, at.top, at.right - at.left, at.bottom - at.top,
                     SWP_NOZORDER | SWP_NOACTIVATE);
        form_.toolTips.update(*this);
    }
}

void NativeControl::follow(int wider, int taller) {
    bounds_.left += follow_.moveRight ? wider : 0;
    bounds_.top += follow_.moveDown ? taller : 0;
    bounds_.width += follow_.growRight ? wider : 0;
    bounds_.height += follow_.growDown ? taller : 0;
}

void NativeControl::applyFont() {
    send(WM_SETFONT, reinterpret_cast<WPARAM>(form_.font(bold_)), TRUE);
}

HBRUSH NativeControl::colours(HDC context) {
    SetTextColor(context, systemColour(fore_));
    SetBkColor(context, systemColour(back_));
    return backBrush();
}

HBRUSH NativeControl::backBrush() {
    if (!backBrush_) {
        backBrush_.reset(CreateSolidBrush(systemColour(back_)));
    }
    return backBrush_.get();
}

void NativeControl::colourChanged() {
    backBrush_.reset();
    InvalidateRect(window_, nullptr, TRUE);
}

void NativeControl::setEnabledState(bool enabled) {
    if (enabled_ == enabled) {
        return;
    }
    enabled_ = enabled;
    if (!enabled) {
        form_.focus.drop(*this);
    }
    EnableWindow(window_, enabled);
}

void NativeControl::setVisibleState(bool visible) {
    if (visible_ == visible) {
        return;
    }
    visible_ = visible;
    if (!visible) {
        form_.focus.drop(*this);
    }
    if (visible && kind_ == ControlKind::label) {
        // A label that appears may float above others.
        SetWindowPos(window_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }
    ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE);
    form_.toolTips.update(*this);
}

} // namespace tollvane::win32
