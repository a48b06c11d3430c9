#include "entry/FieldFilters.h"

#include "platform/Letters.h"

#include <string_view>

namespace tollvane {

namespace {

constexpr int kBackspace = 8;
constexpr int kFirstPrintable = 32;
constexpr std::size_t kLongZip = 9;
constexpr std::size_t kShortZip = 5;

bool isDigit(int character) {
    return character >= '0' && character <= '9';
}

void filterPaste(std::string& text, void (*filterKey)(int&)) {
    std::string kept;
    for (std::string_view rest = text; !rest.empty();) {
        const std::size_t length = characterLength(rest);
        if (length > 2) {
            kept += rest.substr(0, length); // no key types it
        } else {
            int key = typedKey(rest);
            filterKey(key);
            kept += key != 0 ? typedBytes(key) : std::string();
        }
        rest.remove_prefix(length);
    }
    text = kept;
}

/// Ctrl + A, C, V, X and Z arrive as characters, too.
bool isEditing(int keyAscii) {
    return keyAscii == kBackspace || keyAscii == 1 || keyAscii == 3 || keyAscii == 22 ||
           keyAscii == 24 || keyAscii == 26;
}

} // namespace

void filterNameKey(int& keyAscii) {
    if (keyAscii == '-' || keyAscii == '^' || keyAscii == '|') {
        keyAscii = 0;
    } else if (keyAscii >= kFirstPrintable && keyAscii <= kLargestByte) {
        keyAscii = static_cast<unsigned char>(capitalLetter(static_cast<char>(keyAscii)));
    }
}

void filterNamePaste(std::string& text) {
    filterPaste(text, filterNameKey);
}

void filterZipKey(int& keyAscii) {
    const bool sign = keyAscii == '\'' || keyAscii == '(' || keyAscii == ')';
    if (!isDigit(keyAscii) && !sign && !isEditing(keyAscii)) {
        keyAscii = 0;
    }
}

void filterZipPaste(std::string& text) {
    filterPaste(text, filterZipKey);
}

void keepDigits(std::string& text) {
    std::erase_if(text, [](char character) { return !isDigit(character); });
}

std::string hyphenatedZip(const std::string& zip) {
    return zip.size() == kLongZip ? zip.substr(0, kShortZip) + '-' + zip.substr(kShortZip) : zip;
}

} // namespace tollvane
