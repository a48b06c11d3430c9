#include "controls/ProperCase.h"

#include "platform/Letters.h"

#include <algorithm>

namespace tollvane {

namespace {

constexpr int kBackspace = 8;
constexpr int kDelete = 46;
constexpr int kPageUp = 33;    // the first of the keys that move the caret ...
constexpr int kArrowDown = 40; // ... and the last

constexpr std::string_view kDelimiters = " .'#-_&@";

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

int capital(int keyAscii) {
    return static_cast<unsigned char>(capitalLetter(static_cast<char>(keyAscii)));
}

bool isCharacter(int keyAscii) {
    return keyAscii > 0 && keyAscii <= kLargestByte;
}

/// A house number, a blank, and the first letter of a compass direction: "45 N".
bool endsInHalfADirection(std::string_view text) {
    constexpr std::string_view firsts = "NnSs";
    const std::size_t size = text.size();
    return size >= 3 && isDigit(text[size - 3]) && text[size - 2] == ' ' &&
           firsts.find(text[size - 1]) != std::string_view::npos;
}

/// Whether a word starts behind a text, which is not empty.
bool startsWord(std::string_view text, int keyAscii) {
    // The second byte of a letter may look like a sign: looked for is the whole of it.
    if (kDelimiters.find(lastCharacter(text)) != std::string_view::npos) {
        return true;
    }
    const int direction = capital(keyAscii);
    return endsInHalfADirection(text) && (direction == 'E' || direction == 'W');
}

} // namespace

void ProperCase::keyDown(const TypedInto& box, int keyCode) {
    if (keyCode == kBackspace || keyCode == kDelete) {
        const bool textRemains = !box.text.empty() && !box.allSelected();
        capitalizeNext_ = !textRemains;
    } else if (box.allSelected()) {
        // Also an empty box, which has its whole text selected.
        capitalizeNext_ = true;
    } else if (keyCode >= kPageUp && keyCode <= kArrowDown && box.selStart >= 1) {
        // Whoever moves about in a text mends it: the next letter stays as it is typed. A key that
        // brings a character must not have this effect, or no second word would get its capital.
        capitalizeNext_ = false;
    }
}

void ProperCase::keyPress(const TypedInto& box, int& keyAscii) {
    if (!isCharacter(keyAscii)) {
        return;
    }
    if (!capitalizeNext_) {
        capitalizeNext_ = keyAscii != kBackspace;
        return;
    }
    if (box.allSelected() || (box.nothingSelected() && startsWord(box.text, keyAscii))) {
        keyAscii = capital(keyAscii);
    }
}

} // namespace tollvane
