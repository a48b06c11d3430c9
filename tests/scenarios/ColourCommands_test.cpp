// The two hidden colour commands.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

constexpr int kLetterC = 67;
constexpr int kAllThree = shiftmask::shift | shiftmask::control | shiftmask::alt;

bool isPainted(const Control& control) {
    return control.kind() == ControlKind::label || control.kind() == ControlKind::frame ||
           control.kind() == ControlKind::checkBox;
}

class ColourCommands : public OpenTillTest {
protected:
    void paint() { till.desktop.robot->key(kLetterC, kAllThree); }
    std::vector<Control*> painted() {
        std::vector<Control*> found;
        for (Control* control : till.form().controls()) {
            if (isPainted(*control)) {
                found.push_back(control);
            }
        }
        return found;
    }
};

TEST_F(ColourCommands, PaintEveryLabelFrameAndCheckBoxAtRandom) {
    paint();

    // The fake hands out 0, 1, 2 ... so every channel shows where it went.
    const std::vector<Control*> controls = painted();
    ASSERT_GE(controls.size(), 20U);
    int next = 0;
    const auto channel = [&next] { return next++ % 256; };
    for (const Control* control : controls) {
        const int red = channel();
        const int green = channel();
        const int blue = channel();
        EXPECT_EQ(control->foreColour(), Colour::rgb(red, green, blue)) << control->name();
        const int backRed = channel();
        const int backGreen = channel();
        const int backBlue = channel();
        EXPECT_EQ(control->backColour(), Colour::rgb(backRed, backGreen, backBlue))
            << control->name();
    }
    EXPECT_EQ(till.desktop.random.asked, static_cast<int>(controls.size()) * 6);
}

TEST_F(ColourCommands, TakeEachChannelFromAllItsValuesAndNoOthers) {
    till.desktop.random.planned = {255, 257, 511};

    paint();

    EXPECT_EQ(painted().at(0)->foreColour(), Colour::rgb(255, 1, 255));
}

TEST_F(ColourCommands, SeedTheNumbersFromTheClockFirst) {
    paint();
    EXPECT_EQ(till.desktop.random.seeds, 1);

    paint();
    EXPECT_EQ(till.desktop.random.seeds, 2);
}

TEST_F(ColourCommands, LeaveEveryOtherControlAlone) {
    const Colour fore = till.box("txtCardName").foreColour();
    const Colour back = till.list("cboExpMonth").backColour();

    paint();

    EXPECT_EQ(till.box("txtCardName").foreColour(), fore);
    EXPECT_EQ(till.list("cboExpMonth").backColour(), back);
    EXPECT_EQ(till.kind(0).foreColour(), Colour(Colour::System::buttonText));
}

TEST_F(ColourCommands, NeedAllThreeShiftKeys) {
    for (int shift = 0; shift < kAllThree; ++shift) {
        if (shift != shiftmask::alt) { // Alt and a letter alone would be an access key
            till.desktop.robot->key(kLetterC, shift);
        }
    }
    till.desktop.robot->key('D', kAllThree);

    EXPECT_EQ(till.desktop.random.seeds, 0);
}

TEST_F(ColourCommands, DoubleClickOnTheBackgroundRestoresTheSystemColours) {
    paint();

    till.desktop.robot->doubleClickBackground(till.form());

    for (const Control* control : painted()) {
        EXPECT_EQ(control->foreColour(), Colour(Colour::System::buttonText)) << control->name();
        EXPECT_EQ(control->backColour(), Colour(Colour::System::buttonFace)) << control->name();
    }
}

TEST_F(ColourCommands, AreSeenByTheFormInEveryField) {
    till.box("txtDescription").setFocus();

    paint();

    EXPECT_EQ(till.desktop.random.seeds, 1);
    EXPECT_EQ(till.text("txtDescription"), "");
}

} // namespace
} // namespace tollvane::test
