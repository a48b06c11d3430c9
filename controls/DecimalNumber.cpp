#include "controls/DecimalNumber.h"

namespace tollvane {

namespace {

constexpr int kBackspace = 8;

bool contains(std::string_view text, const std::string& separator) {
    return text.find(separator) != std::string_view::npos;
}

} // namespace

bool mayTypeDecimal(const TypedInto& box, int keyAscii, const DecimalStyle& style) {
    if (keyAscii == kBackspace || style.separator.size() != 1 ||
        !contains(box.text, style.separator)) {
        return true;
    }
    if (keyAscii >= '0' && keyAscii <= '9') {
        // The caret position behind the separator.
        const int behind = static_cast<int>(box.text.find(style.separator)) + 1;
        const bool placesAreFull = static_cast<int>(box.text.size()) >= behind + style.digits;
        return !box.nothingSelected() || box.selStart < behind || !placesAreFull;
    }
    if (keyAscii == static_cast<unsigned char>(style.separator.front())) {
        const std::string_view selected = box.text.substr(static_cast<std::size_t>(box.selStart),
                                                          static_cast<std::size_t>(box.selLength));
        return contains(selected, style.separator);
    }
    return true;
}

} // namespace tollvane
