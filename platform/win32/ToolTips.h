#pragma once

#include <windows.h>

namespace tollvane::win32 {

class FormCore;
class NativeControl;

/// The tool tips of a form. A control is known twice: as a window, and as an area of the form,
/// since a disabled control leaves the mouse to the form.
class ToolTips {
public:
    explicit ToolTips(FormCore& form) : form_(form) {}

    /// Takes over text, place and visibility of a control.
    void update(const NativeControl& control);
    /// To be told of every mouse message of the form and its controls, before they get it: hooking
    /// into the windows instead would make each of their other messages slower, keys among them.
    void mouse(const MSG& message) const;

private:
    void create();
    void set(UINT flags, UINT_PTR id, HWND owner, const RECT& area, const char* text);

    FormCore& form_;
    HWND window_ = nullptr; ///< owned by the form's window and destroyed with it
};

} // namespace tollvane::win32
