// What the system tells a form's window.
#include "platform/win32/Win32Form.h"

#include <algorithm>

namespace tollvane::win32 {

void Win32Form::limitSize(MINMAXINFO& limits) const {
    limits.ptMinTrackSize = {MulDiv(smallest_.cx, core_.dpi(), smallestDpi_),
                             MulDiv(smallest_.cy, core_.dpi(), smallestDpi_)};
}

LRESULT CALLBACK Win32Form::procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_NCCREATE) {
        const auto* const creation = // NOLINTNEXTLINE(performance-no-int-to-ptr)
            reinterpret_cast<const CREATESTRUCTA*>(second);
        SetWindowLongPtrA(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    auto* const form = reinterpret_cast<Win32Form*>( // NOLINT(performance-no-int-to-ptr)
        GetWindowLongPtrA(window, GWLP_USERDATA));
    if (!form || form->core_.window() != window) {
        return DefWindowProcA(window, message, first, second); // not built yet
    }
    LRESULT answer = 0;
    form->core_.ui().guarded([&] { answer = form->received(message, first, second); });
    return answer;
}

LRESULT Win32Form::received(UINT message, WPARAM first, LPARAM second) {
    const HWND window = core_.window();
    if (message == core_.ui().controlNameMessage()) {
        return answerControlName(core_.name(), first, second);
    }
    if (const auto answer = keyMessage(message, first, second)) {
        return *answer;
    }
    if (const auto answer = paintMessage(message, first, second)) {
        return *answer;
    }
    if (const auto answer = windowMessage(message, first, second)) {
        return *answer;
    }
    return DefWindowProcA(window, message, first, second);
}

std::optional<LRESULT> Win32Form::keyMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        if (!core_.keys.keyDown(nullptr, first, message == WM_SYSKEYDOWN)) {
            return 0;
        }
        return std::nullopt;
    case WM_CHAR: core_.keys.character(nullptr, first, second); return 0;
    case WM_SYSCHAR:
        return core_.keys.altCharacter(first) ? std::optional<LRESULT>(0) : std::nullopt;
    case WM_COMMAND: command(first, second); return 0;
    case WM_INITMENUPOPUP:
        // NOLINTNEXTLINE(performance-no-int-to-ptr)
        menus_->opening(reinterpret_cast<HMENU>(first));
        return 0;
    case WM_TIMER: {
        const auto& controls = core_.controls();
        const auto timer = std::find_if(controls.begin(), controls.end(), [first](const auto& one) {
            return reinterpret_cast<WPARAM>(one.get()) == first;
        });
        if (timer != controls.end()) {
            (*timer)->timerRang();
        }
        return 0;
    }
    default: return std::nullopt;
    }
}

void Win32Form::command(WPARAM first, LPARAM second) {
    if (second == 0) {
        menus_->chosen(LOWORD(first));
        return;
    }
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    if (NativeControl* const control = core_.controlOf(reinterpret_cast<HWND>(second))) {
        control->command(HIWORD(first));
    }
}

std::optional<LRESULT> Win32Form::paintMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN: {
        // NOLINTNEXTLINE(performance-no-int-to-ptr)
        NativeControl* const control = core_.controlOf(reinterpret_cast<HWND>(second));
        if (!control || control->kind() == ControlKind::button) {
            return std::nullopt;
        }
        // NOLINTNEXTLINE(performance-no-int-to-ptr)
        return reinterpret_cast<LRESULT>(control->colours(reinterpret_cast<HDC>(first)));
    }
    case WM_SETCURSOR:
        // NOLINTNEXTLINE(performance-no-int-to-ptr)
        return pointerShape(reinterpret_cast<HWND>(first));
    case WM_DPICHANGED:
        // NOLINTNEXTLINE(performance-no-int-to-ptr)
        dpiChanged(LOWORD(first), *reinterpret_cast<const RECT*>(second));
        return 0;
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
        for (const auto& control : core_.controls()) {
            SendMessageA(control->window(), message, first, second);
        }
        return std::nullopt;
    default: return std::nullopt;
    }
}

std::optional<LRESULT> Win32Form::pointerShape(HWND over) const {
    const bool inside = over == core_.window() || IsChild(core_.window(), over);
    if (!inside || core_.pointer != MousePointer::hourglass || core_.ui().openBox()) {
        return std::nullopt;
    }
    SetCursor(LoadCursorA(nullptr, IDC_WAIT));
    return TRUE;
}

void Win32Form::dpiChanged(WPARAM dpi, const RECT& suggested) {
    core_.setDpi(static_cast<int>(dpi));
    SetWindowPos(core_.window(), nullptr, suggested.left, suggested.top,
                 suggested.right - suggested.left, suggested.bottom - suggested.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    core_.layOut();
}

std::optional<LRESULT> Win32Form::windowMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_CLOSE:
        // While a box or a dialog is open, another program's wish to close has to wait.
        if (IsWindowEnabled(core_.window())) {
            close();
        }
        return 0;
    case WM_ENDSESSION:
        if (first) {
            close(); // the position is saved and the components are let go, as ever
        }
        return 0;
    case WM_DESTROY: core_.setWindow(nullptr); return std::nullopt;
    case WM_SIZE:
        if (first != SIZE_MINIMIZED) {
            core_.resized();
        }
        return 0;
    case WM_GETMINMAXINFO:
        // NOLINTNEXTLINE(performance-no-int-to-ptr)
        limitSize(*reinterpret_cast<MINMAXINFO*>(second));
        return 0;
    case WM_SETFOCUS: core_.focus.restore(); return 0;
    case WM_ACTIVATE: activation(LOWORD(first) != WA_INACTIVE); return std::nullopt;
    case kActivated: core_.deliverActivation(); return 0;
    case WM_LBUTTONDBLCLK:
        if (isBackground(
                {static_cast<short>(LOWORD(second)), static_cast<short>(HIWORD(second))})) {
            raise(on.doubleClick);
        }
        return 0;
    default: return std::nullopt;
    }
}

void Win32Form::activation(bool active) {
    if (!active) {
        // A message box of the program is part of the form's own work, not another window.
        leftForBox_ = core_.ui().openBox() != nullptr;
    } else if (!std::exchange(leftForBox_, false) && !showing_) {
        core_.activated();
    }
}

bool Win32Form::isBackground(POINT place) const {
    return ChildWindowFromPointEx(core_.window(), place, CWP_SKIPINVISIBLE) == core_.window();
}

} // namespace tollvane::win32
