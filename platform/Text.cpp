#include "platform/Text.h"

#include <cstddef>

namespace tollvane {

std::string trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string withoutAccessKeys(std::string_view text) {
    std::string shown;
    for (const char character : text) {
        shown.append(character == '&' ? 2 : 1, character);
    }
    return shown;
}

std::string withoutPiece(std::string_view text, std::string_view piece) {
    std::string rest(text);
    if (piece.empty()) {
        return rest;
    }
    for (std::size_t at = rest.find(piece); at != std::string::npos; at = rest.find(piece, at)) {
        rest.erase(at, piece.size());
    }
    return rest;
}

std::string zeroPadded(long number, int digits) {
    const long long wide = number; // its smallest value has no positive twin
    const std::string figures = std::to_string(wide < 0 ? -wide : wide);
    const std::size_t wanted = static_cast<std::size_t>(digits);
    const std::string padding(figures.size() < wanted ? wanted - figures.size() : 0, '0');
    return (number < 0 ? "-" : "") + padding + figures;
}

} // namespace tollvane
