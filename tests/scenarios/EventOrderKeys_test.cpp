// The road of a key.
#include "tests/scenarios/EventOrderTest.h"

namespace tollvane::test {
namespace {

class EventOrderKeys : public EventOrder {
protected:
    void SetUp() override { traced.show(); }
};

TEST_F(EventOrderKeys, ATypedCharacterPassesKeyDownThenKeyPressThenChangesTheText) {
    traced.form().setKeyPreview(true);
    robot.typeText("a");
    EXPECT_EQ(take(), "Form_KeyDown(65,0) txtFirst_KeyDown(65,0) Form_KeyPress(97) "
                      "txtFirst_KeyPress(97) txtFirst_Change('a')");
}

TEST_F(EventOrderKeys, WithoutKeyPreviewTheFormSeesNoKeys) {
    robot.typeText("a");
    EXPECT_EQ(take(), "txtFirst_KeyDown(65,0) txtFirst_KeyPress(97) txtFirst_Change('a')");
}

TEST_F(EventOrderKeys, ACapitalArrivesWithShiftHeld) {
    robot.typeText("A");
    EXPECT_EQ(take(), "txtFirst_KeyDown(65,1) txtFirst_KeyPress(65) txtFirst_Change('A')");
}

TEST_F(EventOrderKeys, SignsOfACardTrackArriveAsTheirCharacters) {
    watch(watchValues);
    robot.typeText("%B4^/?;=-.,'");
    EXPECT_EQ(traced.box("txtFirst").text(), "%B4^/?;=-.,'");
}

TEST_F(EventOrderKeys, TheFormDropsAKeyAtKeyDown) {
    traced.form().setKeyPreview(true);
    traced.changeKey["Form_KeyDown"] = [](int& code) { code = 0; };
    robot.typeText("a");
    EXPECT_EQ(take(), "Form_KeyDown(65,0)");
    EXPECT_EQ(traced.box("txtFirst").text(), "");
}

TEST_F(EventOrderKeys, TheControlDropsAKeyAtKeyDown) {
    traced.form().setKeyPreview(true);
    traced.changeKey["txtFirst_KeyDown"] = [](int& code) { code = 0; };
    robot.typeText("a");
    EXPECT_EQ(take(), "Form_KeyDown(65,0) txtFirst_KeyDown(65,0)");
    EXPECT_EQ(traced.box("txtFirst").text(), "");
}

TEST_F(EventOrderKeys, TheFormDropsACharacterAtKeyPress) {
    traced.form().setKeyPreview(true);
    traced.changeKey["Form_KeyPress"] = [](int& code) { code = 0; };
    robot.typeText("a");
    EXPECT_EQ(take(), "Form_KeyDown(65,0) txtFirst_KeyDown(65,0) Form_KeyPress(97)");
    EXPECT_EQ(traced.box("txtFirst").text(), "");
}

TEST_F(EventOrderKeys, TheControlDropsACharacterAtKeyPress) {
    traced.changeKey["txtFirst_KeyPress"] = [](int& code) { code = 0; };
    robot.typeText("a");
    EXPECT_EQ(take(), "txtFirst_KeyDown(65,0) txtFirst_KeyPress(97)");
    EXPECT_EQ(traced.box("txtFirst").text(), "");
}

TEST_F(EventOrderKeys, TheControlSeesTheCharacterThatTheFormMadeOfIt) {
    traced.form().setKeyPreview(true);
    watch(watchKeys | watchValues);
    traced.changeKey["Form_KeyPress"] = [](int& code) { code = 'x'; };
    traced.changeKey["txtFirst_KeyPress"] = [](int& code) { code += 'Y' - 'x'; };
    robot.typeText("a");
    EXPECT_EQ(take(), "Form_KeyDown(65,0) txtFirst_KeyDown(65,0) Form_KeyPress(97) "
                      "txtFirst_KeyPress(120) txtFirst_Change('Y')");
}

TEST_F(EventOrderKeys, KeysWithoutACharacterSkipKeyPress) {
    traced.form().setKeyPreview(true);
    traced.box("txtFirst").setText("ab");
    for (const int code : {keycode::right, keycode::home, keycode::f1}) {
        take();
        robot.key(code);
        EXPECT_EQ(take(), "Form_KeyDown(" + std::to_string(code) + ",0) txtFirst_KeyDown(" +
                              std::to_string(code) + ",0)");
    }
}

TEST_F(EventOrderKeys, DeleteIsAKeyWithoutACharacterThatChangesTheText) {
    traced.box("txtFirst").setText("ab");
    take();
    robot.key(keycode::deleteKey);
    EXPECT_EQ(take(), "txtFirst_KeyDown(46,0) txtFirst_Change('b')");
}

TEST_F(EventOrderKeys, BackspaceIsACharacter) {
    robot.typeText("ab");
    take();
    robot.typeText("\b");
    EXPECT_EQ(take(), "txtFirst_KeyDown(8,0) txtFirst_KeyPress(8) txtFirst_Change('a')");
}

TEST_F(EventOrderKeys, EnterIsACharacterThatPressesNothing) {
    traced.form().setKeyPreview(true);
    robot.typeText("\r");
    EXPECT_EQ(take(), "Form_KeyDown(13,0) txtFirst_KeyDown(13,0) Form_KeyPress(13) "
                      "txtFirst_KeyPress(13)");
}

TEST_F(EventOrderKeys, EnterOnAButtonPressesNothing) {
    focusOn("cmdPress");
    robot.typeText("\r");
    EXPECT_EQ(take(), "cmdPress_KeyDown(13,0) cmdPress_KeyPress(13)");
}

TEST_F(EventOrderKeys, EscapeIsACharacterThatPressesNothingAndLeavesTheFormOpen) {
    robot.typeText("\x1b");
    EXPECT_EQ(take(), "txtFirst_KeyDown(27,0) txtFirst_KeyPress(27)");
    EXPECT_TRUE(traced.form().isOpen());
}

TEST_F(EventOrderKeys, ASpacePressesAButton) {
    focusOn("cmdPress");
    robot.typeText(" ");
    EXPECT_EQ(take(), "cmdPress_KeyDown(32,0) cmdPress_KeyPress(32) cmdPress_Click");
}

TEST_F(EventOrderKeys, ASpaceThatWasDroppedPressesNoButton) {
    focusOn("cmdPress");
    traced.changeKey["cmdPress_KeyPress"] = [](int& code) { code = 0; };
    robot.typeText(" ");
    EXPECT_EQ(take(), "cmdPress_KeyDown(32,0) cmdPress_KeyPress(32)");
}

TEST_F(EventOrderKeys, ASpaceThatWasDroppedAtKeyDownPressesNoButton) {
    focusOn("cmdPress");
    traced.changeKey["cmdPress_KeyDown"] = [](int& code) { code = 0; };
    robot.typeText(" ");
    EXPECT_EQ(take(), "cmdPress_KeyDown(32,0)");
}

TEST_F(EventOrderKeys, ASpaceTogglesACheckBox) {
    focusOn("chkBox");
    robot.typeText(" ");
    EXPECT_EQ(take(), "chkBox_KeyDown(32,0) chkBox_KeyPress(32) chkBox_Click");
    EXPECT_TRUE(traced.get<CheckBox>("chkBox").checked());
    robot.typeText(" ");
    EXPECT_FALSE(traced.get<CheckBox>("chkBox").checked());
}

TEST_F(EventOrderKeys, ASpacePressesAnOptionButtonAlsoWhenItIsSelected) {
    focusOn("optKind", 0);
    robot.typeText(" ");
    EXPECT_EQ(take(), "optKind0_KeyDown(32,0) optKind0_KeyPress(32) optKind0_Click");
    robot.typeText(" ");
    EXPECT_EQ(take(), "optKind0_KeyDown(32,0) optKind0_KeyPress(32) optKind0_Click");
}

TEST_F(EventOrderKeys, AnArrowMovesTheSelectionOfAList) {
    focusOn("cboList");
    robot.key(keycode::down);
    EXPECT_EQ(take(), "cboList_KeyDown(40,0) cboList_Click");
    EXPECT_EQ(traced.get<ComboBox>("cboList").listIndex(), 0);
}

TEST_F(EventOrderKeys, AnArrowThatWasDroppedMovesNoSelection) {
    focusOn("cboList");
    traced.changeKey["cboList_KeyDown"] = [](int& code) { code = 0; };
    robot.key(keycode::down);
    EXPECT_EQ(take(), "cboList_KeyDown(40,0)");
    EXPECT_EQ(traced.get<ComboBox>("cboList").listIndex(), -1);
}

TEST_F(EventOrderKeys, AllThreeShiftKeysTogetherReachKeyDown) {
    traced.form().setKeyPreview(true);
    robot.key('C', shiftmask::shift | shiftmask::control | shiftmask::alt);
    EXPECT_EQ(take(), "Form_KeyDown(67,7) txtFirst_KeyDown(67,7)");
}

TEST_F(EventOrderKeys, TabReachesNoHandlerAsAKey) {
    traced.form().setKeyPreview(true);
    watch(watchKeys | watchValues);
    robot.tab();
    robot.shiftTab();
    robot.tab();
    EXPECT_EQ(take(), "");
    EXPECT_EQ(active(), "txtSecond");
    EXPECT_EQ(traced.box("txtSecond").text(), "old");
}

TEST_F(EventOrderKeys, AccessKeysReachNoHandlerAsKeys) {
    traced.form().setKeyPreview(true);
    watch(watchKeys | watchValues);
    robot.accessKey('s');
    EXPECT_EQ(take(), "");
    EXPECT_EQ(active(), "txtSecond");
    EXPECT_EQ(traced.box("txtSecond").text(), "old");
}

TEST_F(EventOrderKeys, WithNoActiveControlTheFormStillSeesTheKeys) {
    traced.form().setKeyPreview(true);
    traced.box("txtFirst").setEnabled(false);
    take();
    robot.typeText("a");
    EXPECT_EQ(take(), "Form_KeyDown(65,0) Form_KeyPress(97)");
}

class EventOrderDefaultButton : public ScenarioTest {
protected:
    void SetUp() override { traced.show(); }
    TracedForm traced{*desk.forms, {.defaultButton = "cmdPress", .cancelButton = "cmdFree"}};
};

TEST_F(EventOrderDefaultButton, EnterPressesItWithoutMovingTheFocus) {
    robot.typeText("\r");
    EXPECT_EQ(traced.take(), "txtFirst_KeyDown(13,0) txtFirst_KeyPress(13) "
                             "txtFirst_Validate(in txtFirst) cmdPress_Click");
    EXPECT_EQ(traced.active(), "txtFirst");
}

TEST_F(EventOrderDefaultButton, EnterDoesNothingWhenTheValidationRefuses) {
    traced.refusing.insert("txtFirst");
    traced.watch(watchValues);
    robot.typeText("\r");
    EXPECT_EQ(traced.take(), "");
}

TEST_F(EventOrderDefaultButton, EnterPressesTheButtonThatHasTheFocus) {
    traced.form().find("cmdTwin").setFocus();
    traced.watch(watchValues);
    robot.typeText("\r");
    EXPECT_EQ(traced.take(), "cmdTwin_Click");
}

TEST_F(EventOrderDefaultButton, ADroppedEnterPressesNothing) {
    traced.changeKey["txtFirst_KeyPress"] = [](int& code) { code = 0; };
    robot.typeText("\r");
    EXPECT_EQ(traced.take(), "txtFirst_KeyDown(13,0) txtFirst_KeyPress(13)");
}

TEST_F(EventOrderDefaultButton, ADisabledOneIsNotPressed) {
    traced.form().find("cmdPress").setEnabled(false);
    traced.watch(watchValues);
    robot.typeText("\r");
    EXPECT_EQ(traced.take(), "");
}

TEST_F(EventOrderDefaultButton, EscapePressesTheCancelButtonWithoutValidationOrFocus) {
    traced.refusing.insert("txtFirst");
    robot.typeText("\x1b");
    EXPECT_EQ(traced.take(), "txtFirst_KeyDown(27,0) txtFirst_KeyPress(27) cmdFree_Click");
    EXPECT_EQ(traced.active(), "txtFirst");
}

} // namespace
} // namespace tollvane::test
