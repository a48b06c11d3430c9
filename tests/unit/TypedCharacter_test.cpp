// Characters that were held back enter a box as if they were typed.

#include "entry/TypedCharacter.h"

#include "tests/desktop/TestDesktop.h"
#include "tests/scenarios/TracedForm.h"

#include <gtest/gtest.h>

namespace tollvane::test {
namespace {

class TypedCharacter : public testing::Test {
protected:
    /// What the box holds after these characters entered it.
    std::string entered(std::string_view characters) {
        for (const char character : characters) {
            enterTyped(box, character);
        }
        return box.text();
    }
    void addStyle(std::uint32_t bit) { box.setWindowStyle(box.windowStyle() | bit); }

    TestDesktop desk;
    TracedForm traced{*desk.forms};
    TextBox& box = traced.box("txtFirst");
};

TEST_F(TypedCharacter, EntersAsItIsWithoutAStyle) {
    EXPECT_EQ(entered("aB1%"), "aB1%");
    EXPECT_EQ(box.selStart(), 4);
}

TEST_F(TypedCharacter, BecomesACapitalInABoxOfCapitals) {
    addStyle(editstyle::upperCase);
    EXPECT_EQ(entered("aB1%"), "AB1%");
}

TEST_F(TypedCharacter, BecomesASmallLetterInABoxOfSmallLetters) {
    addStyle(editstyle::lowerCase);
    EXPECT_EQ(entered("aB1%"), "ab1%");
}

TEST_F(TypedCharacter, IsDroppedByABoxOfDigitsUnlessItIsOne) {
    addStyle(editstyle::digitsOnly);
    EXPECT_EQ(entered("a0/5:9%"), "059");
}

TEST_F(TypedCharacter, StaysOutsideABoxThatTakesNone) {
    box.setLocked(true);
    EXPECT_EQ(entered("a"), "");
    box.setLocked(false);
    box.setEnabled(false);
    EXPECT_EQ(entered("a"), "");
    box.setEnabled(true);
    EXPECT_EQ(entered("a"), "a");
}

TEST_F(TypedCharacter, PassesTheBoxesOwnHandler) {
    traced.changeKey["txtFirst_KeyPress"] = [](int& code) { code = code == 'x' ? 0 : code + 1; };
    EXPECT_EQ(entered("axb"), "bc");
}

TEST_F(TypedCharacter, EntersABoxThatHandlesNoKeys) {
    box.on.keyPress = nullptr;
    EXPECT_EQ(entered("ab"), "ab");
}

TEST_F(TypedCharacter, ControlCharactersAreNoneABlankIsOne) {
    EXPECT_EQ(entered("a\x1f b"), "a b");
}

TEST_F(TypedCharacter, ReplacesTheSelectionAlsoInAFullBox) {
    box.setText("1234");
    box.setMaxLength(4);
    box.select(1, 2);

    EXPECT_EQ(entered("x"), "1x4");
    EXPECT_EQ(box.selStart(), 2);
    EXPECT_EQ(box.selLength(), 0);
    EXPECT_EQ(entered("yz"), "1xy4");
}

} // namespace
} // namespace tollvane::test
