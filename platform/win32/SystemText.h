#pragma once

#include "platform/Error.h"

#include <windows.h>

#include <string>
#include <string_view>

namespace tollvane::win32 {

/// The system's text for an error or result code, without the closing line break; empty when the
/// system has none.
std::string systemText(DWORD code);

/// The last system error as an Error whose source is `routine`.
Error lastSystemError(std::string_view routine);

/// The language that a box's buttons are asked for in, which is that of its text: Wine mirrors the
/// box of an operator whose own language is written from the right. Windows takes its own language
/// and mirrors no box that does not ask for it.
inline constexpr WORD kBoxLanguage = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);

/// Between the process code page and the system's wide texts.
std::wstring widened(std::string_view text);
std::string narrowed(std::wstring_view text);

} // namespace tollvane::win32
