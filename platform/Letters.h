#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tollvane {

// Letters as the process's code page has them: the C runtime's character locale, which the program
// sets from the system when it starts. Characters of two bytes stay as they are.

/// Bytes of the character that `text` starts with; 0 for an empty text.
std::size_t characterLength(std::string_view text);

char smallLetter(char letter);
char capitalLetter(char letter);

/// Every letter made small.
std::string lowerCased(std::string_view text);

} // namespace tollvane
