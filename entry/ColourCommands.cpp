#include "entry/ColourCommands.h"

namespace tollvane {

namespace {

constexpr int kLetterC = 67;
constexpr int kChannelValues = 256;

Colour randomColour(RandomNumbers& random) {
    const int red = random.below(kChannelValues);
    const int green = random.below(kChannelValues);
    const int blue = random.below(kChannelValues);
    return Colour::rgb(red, green, blue);
}

/// Hands each painted control to `paint`; one that fails keeps its colours.
template <class Paint>
void forEachPainted(Form& form, Paint&& paint) noexcept {
    for (Control* control : form.controls()) {
        const ControlKind kind = control->kind();
        if (kind != ControlKind::label && kind != ControlKind::frame &&
            kind != ControlKind::checkBox) {
            continue;
        }
        try {
            paint(*control);
        } catch (...) {
            // Colours are decoration.
        }
    }
}

} // namespace

bool isColourCommand(int keyCode, int shift) {
    return keyCode == kLetterC && shift == (shiftmask::shift | shiftmask::control | shiftmask::alt);
}

void paintRandomColours(Form& form, RandomNumbers& random) noexcept {
    try {
        random.seedFromClock();
    } catch (...) {
        // Unseeded colours are as good as others.
    }
    forEachPainted(form, [&](Control& control) {
        control.setForeColour(randomColour(random));
        control.setBackColour(randomColour(random));
    });
}

void restoreColours(Form& form) noexcept {
    forEachPainted(form, [](Control& control) {
        control.setForeColour(Colour::System::buttonText);
        control.setBackColour(Colour::System::buttonFace);
    });
}

} // namespace tollvane
