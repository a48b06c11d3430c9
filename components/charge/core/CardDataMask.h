// Keeps card data out of files: what goes into a journal, ledger or log passes through here.
#pragma once

#include <string>
#include <string_view>

namespace tollvane::charge {

// The text with every run of digits that is an acceptable card number (blanks and dashes between
// its digits do not hide it) reduced to "*" and its last four digits.
std::string withoutCardNumbers(std::string_view text);

// The last four digits of a card number; fewer characters are given as they are.
std::string lastFour(std::string_view cardNumber);

} // namespace tollvane::charge
