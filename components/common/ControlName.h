// Names of windows for desktop automation: a window with a name answers the registered message
// "WM_GETCONTROLNAME" (wParam: size of the buffer in characters, lParam: a wide buffer in this
// process) by copying its name, ended with a zero, and returning the number of characters before
// it. Without a buffer it returns the length of the name.
#pragma once

#include <windows.h>

namespace tollvane::com {

// name must outlive the window. A second call replaces the name.
void setControlName(HWND window, const wchar_t* name) noexcept;

} // namespace tollvane::com
