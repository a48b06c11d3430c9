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

char smallLetter(char letter) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
}

char capitalLetter(char letter) {
    return static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
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
