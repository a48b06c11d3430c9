// What makes a card number acceptable. The table of prefixes is in the README of this folder.
#pragma once

#include <string_view>

namespace tollvane::charge {

// Digits only, a length and a prefix that a card scheme uses, and the right check digit. Blanks and
// dashes are not accepted.
bool acceptableCardNumber(std::string_view number) noexcept;

// Name of the scheme whose prefix and length fit, "" when none does. Does not look at the check
// digit.
std::string_view cardScheme(std::string_view number) noexcept;

} // namespace tollvane::charge
