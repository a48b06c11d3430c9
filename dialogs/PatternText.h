#pragma once

#include <string>
#include <string_view>

namespace tollvane {

/// Puts the digits of a text into a pattern: each "#" takes the next digit, everything else stands
/// for itself. Where the digits run out the pattern ends.
std::string patternText(std::string_view text, std::string_view pattern);

} // namespace tollvane
