#include "platform/Letters.h"

#include <algorithm>
#include <cctype>
#include <cwchar>

namespace tollvane {

std::size_t characterLength(std::string_view text) {
    std::mbstate_t state{};
    const std::size_t length = std::mbrlen(text.data(), text.size(), &state);
    // Bytes that make no character, and the NUL, count as one.
    const bool broken = length == 0 || length > text.size();
    return broken ? std::min<std::size_t>(text.size(), 1) : length;
}

std::string_view lastCharacter(std::string_view text) {
    std::string_view last;
    while (!text.empty()) {
        last = text.substr(0, characterLength(text));
        text.remove_prefix(last.size());
    }
    return last;
}

std::size_t wholeCharacters(std::string_view text, std::size_t most) {
    std::size_t end = 0;
    while (end < text.size()) {
        const std::size_t next = end + characterLength(text.substr(end));
        if (next > most) {
            break;
        }
        end = next;
    }
    return end;
}

std::string typedBytes(int keyAscii) {
    std::string bytes;
    if (keyAscii > kLargestByte) {
        bytes += static_cast<char>(keyAscii >> 8);
    }
    return bytes += static_cast<char>(keyAscii);
}

int typedKey(std::string_view text) {
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    return characterLength(text) == 2 ? byte(0) << 8 | byte(1) : byte(0);
}

// Runtimes answer a similar letter where the code page lacks the twin, and a blank for the first
// half of a character of two bytes: neither leads back.

char smallLetter(char letter) {
    const int given = static_cast<unsigned char>(letter);
    const int small = std::tolower(given);
    return std::toupper(small) == given ? static_cast<char>(small) : letter;
}

char capitalLetter(char letter) {
    const int given = static_cast<unsigned char>(letter);
    const int capital = std::toupper(given);
    return std::tolower(capital) == given ? static_cast<char>(capital) : letter;
}

std::string lowerCased(std::string_view text) {
    std::string small(text);
    for (std::size_t at = 0; at < small.size();) {
        const std::size_t length = characterLength(text.substr(at));
        if (length == 1) {
            small[at] = smallLetter(small[at]);
        }
        at += length;
    }
    return small;
}

} // namespace tollvane
