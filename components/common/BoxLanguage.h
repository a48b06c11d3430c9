#pragma once

#include <windows.h>

namespace tollvane::com {

/// The language that a box's buttons are asked for in, which is that of its text: Wine mirrors the
/// box of an operator whose own language is written from the right. Windows takes its own language
/// and mirrors no box that does not ask for it.
inline constexpr WORD kBoxLanguage = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);

} // namespace tollvane::com
