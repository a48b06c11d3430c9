#include "components/charge/core/Settings.h"

#include <algorithm>
#include <cctype>

namespace tollvane::charge {

namespace {

constexpr std::string_view excludedCharacters = "\\/:*?\"<>|";
constexpr std::size_t longestName = 255;

bool isExcluded(char character) {
    return static_cast<unsigned char>(character) < ' ' ||
           excludedCharacters.find(character) != std::string_view::npos;
}

// CON, PRN, AUX, NUL, COM1 to COM9, LPT1 to LPT9, with any extension.
bool isDeviceName(std::string_view name) {
    std::string stem(name.substr(0, name.find('.')));
    std::transform(stem.begin(), stem.end(), stem.begin(),
                   [](unsigned char character) { return std::toupper(character); });
    if (stem == "CON" || stem == "PRN" || stem == "AUX" || stem == "NUL")
        return true;
    return stem.size() == 4 && (stem.starts_with("COM") || stem.starts_with("LPT")) &&
           stem[3] >= '1' && stem[3] <= '9';
}

} // namespace

bool isPlainFileName(std::string_view name) {
    if (name.empty() || name.size() > longestName || name.back() == '.' || name.back() == ' ')
        return false;
    return std::none_of(name.begin(), name.end(), isExcluded) && !isDeviceName(name);
}

} // namespace tollvane::charge
