#pragma once

#include <string>

namespace tollvane {

// What may be typed into a field. A filter changes the character, or sets it to 0 to drop it; the
// same holds for every character of a pasted text.

/// Names and streets of card holders: capitals, without "-", "^" and "|", which tracks use.
void filterNameKey(int& keyAscii);
void filterNamePaste(std::string& text);

/// The holder's zip code: digits, apostrophe and round brackets.
void filterZipKey(int& keyAscii);
void filterZipPaste(std::string& text);

void keepDigits(std::string& text);

/// A zip code of nine characters with its hyphen: "12345-6789". Others stay as they are.
std::string hyphenatedZip(const std::string& zip);

} // namespace tollvane
