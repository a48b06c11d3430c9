#pragma once

#include <windows.h>

#include <string>

namespace tollvane::win32 {

/// The clipboard's text, empty when it holds none.
std::string clipboardText(HWND owner);

} // namespace tollvane::win32
