#pragma once

#include <string_view>

namespace tollvane::probe {

/// Types a text into the window in front, as an input method does: its letters are on no key.
/// Answers how many of them the system took.
long long typeText(std::wstring_view text);

} // namespace tollvane::probe
