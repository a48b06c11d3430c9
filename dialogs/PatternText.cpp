#include "dialogs/PatternText.h"

namespace tollvane {

std::string patternText(std::string_view text, std::string_view pattern) {
    constexpr std::string_view kDigits = "0123456789";
    std::string shown;
    std::size_t next = text.find_first_of(kDigits);
    for (const char place : pattern) {
        if (next == std::string_view::npos) {
            break;
        }
        if (place != '#') {
            shown += place;
        } else {
            shown += text[next];
            next = text.find_first_of(kDigits, next + 1);
        }
    }
    return shown;
}

} // namespace tollvane
