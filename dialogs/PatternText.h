#pragma once

#include <string>
#include <string_view>

namespace tollvane {

/// Puts the digits of a text into a pattern: each "#" takes the next digit, everything else stands
/// for itself. Behind the last digit the pattern ends, so that a number without an extension gets
/// no word for one.
std::string patternText(std::string_view text, std::string_view pattern);

} // namespace tollvane
