#pragma once

#include <windows.h>

namespace tollvane::win32 {

/// A single-line edit control writes at the top of its client area. These make the client area of a
/// taller box as high as its line, in the middle, and paint the rest of the box.
void centreLine(HWND edit, RECT& client);
void paintAroundLine(HWND edit, HBRUSH brush);

} // namespace tollvane::win32
