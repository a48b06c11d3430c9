#include "entry/TypedCharacter.h"

#include "platform/Letters.h"

namespace tollvane {

namespace {

constexpr int kFirstPrintable = 32;

/// The character as the edit style lets it through, or 0.
char styled(std::uint32_t style, char character) {
    if ((style & editstyle::digitsOnly) != 0 && (character < '0' || character > '9')) {
        return 0;
    }
    if ((style & editstyle::upperCase) != 0) {
        return capitalLetter(character);
    }
    return (style & editstyle::lowerCase) != 0 ? smallLetter(character) : character;
}

} // namespace

void enterTyped(TextBox& box, char character) {
    if (!box.enabled() || box.locked()) {
        return;
    }
    int key = static_cast<unsigned char>(character);
    if (box.on.keyPress) {
        box.on.keyPress(key);
    }
    const char entered =
        key < kFirstPrintable ? '\0' : styled(box.windowStyle(), static_cast<char>(key));
    const SecretText text = box.secretText();
    const auto start = static_cast<std::size_t>(box.selStart());
    const auto selected = static_cast<std::size_t>(box.selLength());
    if (entered == 0 || static_cast<int>(text.size() - selected) >= box.maxLength()) {
        return;
    }
    SecretText grown(text.view().substr(0, start));
    grown.append(entered);
    for (const char behind : text.view().substr(start + selected)) {
        grown.append(behind);
    }
    box.setText(grown.view());
    box.select(static_cast<int>(start) + 1, 0);
}

} // namespace tollvane
