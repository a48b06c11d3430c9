#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tollvane {

// Letters as the process's code page has them: the C runtime's character locale, which the program
// sets from the system when it starts. Characters of two bytes stay as they are.

/// Bytes of the character that `text` starts with; 0 for an empty text.
std::size_t characterLength(std::string_view text);

/// The character that `text` ends with, whole; nothing for an empty text.
std::string_view lastCharacter(std::string_view text);

/// Bytes of the whole characters that `text` starts with and that fit into `most` bytes.
std::size_t wholeCharacters(std::string_view text, std::size_t most);

/// A character of two bytes is one typed key, whose code is above this one.
constexpr int kLargestByte = 0xFF;

/// The one or two bytes that a typed key stands for.
std::string typedBytes(int keyAscii);

/// The key that types the character that `text` starts with.
int typedKey(std::string_view text);

/// The letter's twin. A letter whose twin the code page lacks stays as it is, and so does a byte
/// that is no letter.
char smallLetter(char letter);
char capitalLetter(char letter);

/// Every letter made small.
std::string lowerCased(std::string_view text);

} // namespace tollvane
