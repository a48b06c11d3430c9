#pragma once

#include <windows.h>

namespace tollvane::com {

/// The language of a box's buttons, which is that of its text. In the operator's own one, where
/// that is written from the right, the system would mirror the whole box.
inline constexpr WORD kBoxLanguage = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);

} // namespace tollvane::com
