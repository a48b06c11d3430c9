// The common routines that work on a text box.
#include "app/CommonRoutines.h"
#include "tests/scenarios/EventOrderTest.h"

namespace tollvane::test {
namespace {

class TextBoxRoutines : public EventOrder {
protected:
    void SetUp() override {
        traced.show();
        box.setText("abcd");
        box.select(2, 0);
    }

    void expectSelection(int start, int length) {
        EXPECT_EQ(box.selStart(), start);
        EXPECT_EQ(box.selLength(), length);
    }

    TextBox& box = traced.box("txtFirst");
};

TEST_F(TextBoxRoutines, SelectAllTextSelectsAllWhenTheMouseButtonIsUp) {
    SelectAllText(desk.mouse, box, false);
    expectSelection(0, 4);
}

TEST_F(TextBoxRoutines, SelectAllTextLeavesTheCaretToAClick) {
    desk.mouse.down = true;
    SelectAllText(desk.mouse, box, false);
    expectSelection(2, 0);
}

TEST_F(TextBoxRoutines, SelectAllTextOverridesAClickWhenItMust) {
    desk.mouse.down = true;
    SelectAllText(desk.mouse, box, true);
    expectSelection(0, 4);
}

TEST_F(TextBoxRoutines, SelectAllTextIgnoresAMouseThatCannotBeAsked) {
    class BrokenMouse : public Mouse {
        bool leftButtonDown() override { throw Error(5, "Mouse", "broken"); }
    };
    BrokenMouse mouse;
    SelectAllText(mouse, box, false);
    expectSelection(2, 0);
}

TEST_F(TextBoxRoutines, SetDigitsOnlyAddsItsStyleAndAnswersTheOneBefore) {
    const std::uint32_t before = box.windowStyle();
    ASSERT_NE(before, 0U);
    EXPECT_EQ(before & 0x2000, 0U);
    EXPECT_EQ(SetDigitsOnly(box), before);
    EXPECT_EQ(box.windowStyle(), before | 0x2000);
}

TEST_F(TextBoxRoutines, SetDigitsOnlyMakesTheBoxDropWhatIsNoDigit) {
    SetDigitsOnly(box);
    box.setText("");
    robot.typeText("4a1-1 1x");
    EXPECT_EQ(box.text(), "4111");
}

TEST_F(TextBoxRoutines, SetDigitsOnlyKeepsOtherStyles) {
    box.setWindowStyle(box.windowStyle() | editstyle::upperCase);
    SetDigitsOnly(box);
    EXPECT_NE(box.windowStyle() & editstyle::upperCase, 0U);
}

} // namespace
} // namespace tollvane::test
