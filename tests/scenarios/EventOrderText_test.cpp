// What a text box does with what is typed, pasted and set.
#include "tests/scenarios/EventOrderTest.h"

namespace tollvane::test {
namespace {

class EventOrderText : public EventOrder {
protected:
    void SetUp() override {
        traced.show();
        watch(watchValues | watchPaste);
    }

    TextBox& box = traced.box("txtFirst");
};

TEST_F(EventOrderText, AMaximumLengthOfZeroAcceptsNoCharacter) {
    box.setMaxLength(0);
    robot.typeText("a");
    EXPECT_EQ(box.text(), "");
    EXPECT_EQ(take(), "");
    EXPECT_EQ(box.maxLength(), 0);
}

TEST_F(EventOrderText, ACharacterThatWouldPassTheMaximumLengthIsNotTaken) {
    box.setMaxLength(2);
    robot.typeText("abc");
    EXPECT_EQ(box.text(), "ab");
    EXPECT_EQ(take(), "txtFirst_Change('a') txtFirst_Change('ab')");
}

TEST_F(EventOrderText, KeyPressIsRaisedAlsoForACharacterThatDoesNotFit) {
    box.setMaxLength(0);
    watch(watchKeys);
    robot.typeText("a");
    EXPECT_EQ(take(), "txtFirst_KeyDown(65,0) txtFirst_KeyPress(97)");
}

TEST_F(EventOrderText, AReplacedSelectionDoesNotCountForTheMaximumLength) {
    box.setMaxLength(3);
    box.setText("abc");
    box.select(1, 1);
    robot.typeText("X");
    EXPECT_EQ(box.text(), "aXc");
    EXPECT_EQ(box.selStart(), 2);
    EXPECT_EQ(box.selLength(), 0);
}

TEST_F(EventOrderText, TypingReplacesTheWholeSelection) {
    box.setText("abcd");
    box.select(0, -1);
    EXPECT_EQ(box.selStart(), 0);
    EXPECT_EQ(box.selLength(), 4);
    take();
    robot.typeText("x");
    EXPECT_EQ(take(), "txtFirst_Change('x')");
}

TEST_F(EventOrderText, ReplacingASelectionByTheSameTextRaisesNoChange) {
    box.setText("a");
    box.select(0, -1);
    take();
    robot.typeText("a");
    EXPECT_EQ(box.text(), "a");
    EXPECT_EQ(take(), "");
}

TEST_F(EventOrderText, SettingATextRaisesChangeWhenItDiffers) {
    box.setText("abc");
    EXPECT_EQ(take(), "txtFirst_Change('abc')");
    box.setText("abc");
    EXPECT_EQ(take(), "");
    box.setText("");
    EXPECT_EQ(take(), "txtFirst_Change('')");
}

TEST_F(EventOrderText, SettingATextIsNotCutToTheMaximumLengthAndClearsTheSelection) {
    box.setMaxLength(2);
    box.setText("abcdef");
    box.select(1, 3);
    box.setText("uvwxyz");
    EXPECT_EQ(box.text(), "uvwxyz");
    EXPECT_EQ(box.selStart(), 0);
    EXPECT_EQ(box.selLength(), 0);
    EXPECT_EQ(box.maxLength(), 2);
}

TEST_F(EventOrderText, ANegativeLengthSelectsToTheEndAndPositionsBehindTheTextAreItsEnd) {
    box.setText("abcdef");
    box.select(2, -1);
    EXPECT_EQ(box.selStart(), 2);
    EXPECT_EQ(box.selLength(), 4);
    box.select(4, 20);
    EXPECT_EQ(box.selStart(), 4);
    EXPECT_EQ(box.selLength(), 2);
    box.select(20, 0);
    EXPECT_EQ(box.selStart(), 6);
    EXPECT_EQ(box.selLength(), 0);
}

TEST_F(EventOrderText, TheCaretMovesAndSelectsByKeys) {
    box.setText("abcdef");
    robot.key(keycode::end);
    EXPECT_EQ(box.selStart(), 6);
    robot.key(keycode::left);
    EXPECT_EQ(box.selStart(), 5);
    robot.key(keycode::home);
    robot.key(keycode::right, shiftmask::shift);
    robot.key(keycode::right, shiftmask::shift);
    EXPECT_EQ(box.selStart(), 0);
    EXPECT_EQ(box.selLength(), 2);
    robot.typeText("\b");
    EXPECT_EQ(box.text(), "cdef");
    robot.key(keycode::end, shiftmask::shift);
    EXPECT_EQ(box.selLength(), 4);
    robot.key(keycode::deleteKey);
    EXPECT_EQ(box.text(), "");
}

TEST_F(EventOrderText, BackspaceAtTheStartAndDeleteAtTheEndChangeNothing) {
    box.setText("ab");
    take();
    robot.typeText("\b");
    robot.key(keycode::end);
    robot.key(keycode::deleteKey);
    EXPECT_EQ(box.text(), "ab");
    EXPECT_EQ(take(), "");
}

TEST_F(EventOrderText, ALockedBoxTakesTheFocusAndSeesKeysButKeepsItsText) {
    box.setText("abc");
    box.setLocked(true);
    robot.tab();
    robot.click(traced.form(), "txtFirst");
    EXPECT_EQ(active(), "txtFirst");
    watch(watchKeys | watchValues | watchPaste);
    robot.typeText("x\b");
    robot.key(keycode::deleteKey);
    robot.paste("y");
    EXPECT_EQ(box.text(), "abc");
    EXPECT_EQ(take(), "txtFirst_KeyDown(88,0) txtFirst_KeyPress(120) txtFirst_KeyDown(8,0) "
                      "txtFirst_KeyPress(8) txtFirst_KeyDown(46,0)");
    box.setText("from code");
    EXPECT_EQ(box.text(), "from code");
    box.setLocked(false);
    box.setText("");
    robot.typeText("z");
    EXPECT_EQ(box.text(), "z");
}

TEST_F(EventOrderText, TheDigitsOnlyStyleDropsOtherTypedCharacters) {
    EXPECT_NE(box.windowStyle(), 0U);
    EXPECT_NE(box.setWindowStyle(box.windowStyle() | editstyle::digitsOnly), 0U);
    robot.typeText("1a-2 3\b");
    EXPECT_EQ(box.text(), "12");
    EXPECT_EQ(box.windowStyle() & editstyle::digitsOnly, editstyle::digitsOnly);
}

TEST_F(EventOrderText, TheCaseStylesChangeTypedLetters) {
    box.setWindowStyle(box.windowStyle() | editstyle::upperCase);
    robot.typeText("aB-9");
    EXPECT_EQ(box.text(), "AB-9");
    TextBox& second = traced.box("txtSecond");
    second.setText("");
    second.setWindowStyle(second.windowStyle() | editstyle::lowerCase);
    second.setFocus();
    robot.typeText("aB-9");
    EXPECT_EQ(second.text(), "ab-9");
}

TEST_F(EventOrderText, SettingTheStyleReturnsTheStyleBefore) {
    const std::uint32_t before = box.windowStyle();
    EXPECT_EQ(box.setWindowStyle(before | editstyle::digitsOnly), before);
}

TEST_F(EventOrderText, PasteIsRaisedBeforeTheTextIsInserted) {
    box.setText("ab");
    box.select(1, 0);
    take();
    robot.paste("XY");
    EXPECT_EQ(take(), "txtFirst_Paste('XY') txtFirst_Change('aXYb')");
}

TEST_F(EventOrderText, PasteInsertsOnlyAsMuchAsFits) {
    box.setMaxLength(4);
    box.setText("ab");
    box.select(2, 0);
    take();
    robot.paste("WXYZ");
    EXPECT_EQ(take(), "txtFirst_Paste('WXYZ') txtFirst_Change('abWX')");
}

TEST_F(EventOrderText, AHandlerChangesThePastedText) {
    traced.changePaste["txtFirst_Paste"] = [](std::string& text) { text = "12"; };
    robot.paste("a1b2");
    EXPECT_EQ(take(), "txtFirst_Paste('a1b2') txtFirst_Change('12')");
}

TEST_F(EventOrderText, AnEmptiedPasteInsertsNothingAndKeepsTheSelection) {
    box.setText("abc");
    box.select(0, 2);
    take();
    traced.changePaste["txtFirst_Paste"] = [](std::string& text) { text.clear(); };
    robot.paste("x");
    EXPECT_EQ(take(), "txtFirst_Paste('x')");
    EXPECT_EQ(box.selLength(), 2);
}

TEST_F(EventOrderText, PastingWithKeysPassesTheKeyHandlersFirst) {
    watch(watchKeys | watchValues | watchPaste);
    robot.pasteWithKeys("x");
    EXPECT_EQ(take(), "txtFirst_KeyDown(86,2) txtFirst_KeyPress(22) txtFirst_Paste('x') "
                      "txtFirst_Change('x')");
    traced.changeKey["txtFirst_KeyPress"] = [](int& code) { code = 0; };
    robot.pasteWithKeys("y");
    EXPECT_EQ(box.text(), "x");
}

TEST_F(EventOrderText, WipingATextEmptiesItAndRaisesChangeOnce) {
    box.setText("4111111111111111");
    take();
    EXPECT_EQ(box.secretText().size(), 16U);
    box.wipeText();
    EXPECT_EQ(take(), "txtFirst_Change('')");
    EXPECT_TRUE(box.secretText().empty());
    box.wipeText();
    EXPECT_EQ(take(), "");
}

TEST_F(EventOrderText, TheFirstTextComesFromTheTable) {
    EXPECT_EQ(traced.box("txtSecond").text(), "old");
}

TEST_F(EventOrderText, ATextIsWhatItWasSetToByteForByte) {
    const std::string western = "caf\xE9 \xA3 & && \"q\"";
    box.setText(western);
    EXPECT_EQ(box.text(), western);
}

} // namespace
} // namespace tollvane::test
