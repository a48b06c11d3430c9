// How the focus moves.
#include "tests/scenarios/EventOrderTest.h"

namespace tollvane::test {
namespace {

class EventOrderFocus : public EventOrder {
protected:
    void SetUp() override {
        traced.show();
        watch(watchFocus | watchValues);
    }
};

TEST_F(EventOrderFocus, LeavingByTabValidatesThenLosesThenGets) {
    robot.tab();
    EXPECT_EQ(take(), "txtFirst_Validate(in txtFirst) txtFirst_LostFocus(to txtSecond) "
                      "txtSecond_GotFocus");
    EXPECT_EQ(active(), "txtSecond");
    EXPECT_TRUE(traced.box("txtSecond").hasFocus());
    EXPECT_FALSE(traced.box("txtFirst").hasFocus());
}

TEST_F(EventOrderFocus, LeavingByMouseTakesTheSameRoad) {
    robot.click(traced.form(), "txtSecond");
    EXPECT_EQ(take(), "txtFirst_Validate(in txtFirst) txtFirst_LostFocus(to txtSecond) "
                      "txtSecond_GotFocus");
}

TEST_F(EventOrderFocus, LeavingByAccessKeyTakesTheSameRoad) {
    robot.accessKey('S');
    EXPECT_EQ(take(), "txtFirst_Validate(in txtFirst) txtFirst_LostFocus(to txtSecond) "
                      "txtSecond_GotFocus");
}

TEST_F(EventOrderFocus, ARefusedValidationKeepsTheFocus) {
    traced.refusing.insert("txtFirst");
    robot.tab();
    robot.click(traced.form(), "txtSecond");
    robot.accessKey('s');
    EXPECT_EQ(take(), "txtFirst_Validate(in txtFirst) txtFirst_Validate(in txtFirst) "
                      "txtFirst_Validate(in txtFirst)");
    EXPECT_EQ(active(), "txtFirst");
    robot.typeText("x");
    EXPECT_EQ(traced.box("txtFirst").text(), "x");
}

TEST_F(EventOrderFocus, AButtonPressedByMouseMovesTheFocusFirst) {
    robot.click(traced.form(), "cmdPress");
    EXPECT_EQ(take(), "txtFirst_Validate(in txtFirst) txtFirst_LostFocus(to cmdPress) "
                      "cmdPress_GotFocus cmdPress_Click");
}

TEST_F(EventOrderFocus, AButtonPressedByAccessKeyMovesTheFocusFirst) {
    robot.accessKey('p');
    EXPECT_EQ(take(), "txtFirst_Validate(in txtFirst) txtFirst_LostFocus(to cmdPress) "
                      "cmdPress_GotFocus cmdPress_Click");
}

TEST_F(EventOrderFocus, AButtonIsNotPressedWhenTheValidationRefuses) {
    traced.refusing.insert("txtFirst");
    robot.click(traced.form(), "cmdPress");
    robot.accessKey('p');
    EXPECT_EQ(take(), "txtFirst_Validate(in txtFirst) txtFirst_Validate(in txtFirst)");
    EXPECT_EQ(active(), "txtFirst");
}

TEST_F(EventOrderFocus, AButtonThatCausesNoValidationIsNeverRefused) {
    traced.refusing.insert("txtFirst");
    robot.click(traced.form(), "cmdFree");
    EXPECT_EQ(take(), "txtFirst_LostFocus(to cmdFree) cmdFree_GotFocus cmdFree_Click");
    traced.box("txtFirst").setFocus();
    take();
    robot.accessKey('e');
    EXPECT_EQ(take(), "txtFirst_LostFocus(to cmdFree) cmdFree_GotFocus cmdFree_Click");
}

TEST_F(EventOrderFocus, AButtonThatHasTheFocusIsPressedWithoutMore) {
    focusOn("cmdPress");
    robot.click(traced.form(), "cmdPress");
    EXPECT_EQ(take(), "cmdPress_Click");
}

TEST_F(EventOrderFocus, ADisabledButtonCannotBePressed) {
    traced.form().find("cmdPress").setEnabled(false);
    robot.click(traced.form(), "cmdPress");
    robot.accessKey('p');
    EXPECT_EQ(take(), "");
    EXPECT_EQ(active(), "txtFirst");
}

TEST_F(EventOrderFocus, TheAccessKeyOfAFrameGoesToTheNextControlBehindIt) {
    robot.accessKey('x');
    EXPECT_EQ(active(), "txtThird");
}

TEST_F(EventOrderFocus, TheAccessKeyOfALabelPassesOverAControlThatTakesNoFocus) {
    traced.box("txtSecond").setEnabled(false);
    robot.accessKey('s');
    EXPECT_EQ(active(), "cboList");
}

TEST_F(EventOrderFocus, TheAccessKeyOfACheckBoxMovesTheFocusThereAndPressesIt) {
    robot.accessKey('c');
    EXPECT_EQ(take(), "txtFirst_Validate(in txtFirst) txtFirst_LostFocus(to chkBox) "
                      "chkBox_GotFocus chkBox_Click");
    EXPECT_TRUE(traced.get<CheckBox>("chkBox").checked());
}

TEST_F(EventOrderFocus, TheAccessKeyOfAnOptionButtonMovesTheFocusThereAndPressesIt) {
    robot.accessKey('b');
    EXPECT_EQ(take(), "txtFirst_Validate(in txtFirst) txtFirst_LostFocus(to optKind1) "
                      "optKind1_GotFocus optKind1_Click");
    EXPECT_TRUE(traced.get<OptionButton>("optKind", 1).selected());
}

TEST_F(EventOrderFocus, ControlsWithTheSameAccessKeyTakeTurns) {
    watch(watchValues);
    robot.accessKey('t');
    robot.accessKey('t');
    robot.accessKey('t');
    EXPECT_EQ(take(), "cmdTwin_Click cmdTwinToo_Click cmdTwin_Click");
}

TEST_F(EventOrderFocus, SetFocusFromCodeDoesNotValidateAndRaisesAtOnce) {
    traced.refusing.insert("txtFirst");
    traced.box("txtThird").setFocus();
    EXPECT_EQ(take(), "txtFirst_LostFocus(to txtThird) txtThird_GotFocus");
    EXPECT_EQ(active(), "txtThird");
}

TEST_F(EventOrderFocus, SetFocusOnTheActiveControlRaisesNothing) {
    traced.box("txtFirst").setFocus();
    EXPECT_EQ(take(), "");
}

TEST_F(EventOrderFocus, SetFocusOnADisabledOrHiddenControlRaises5) {
    traced.box("txtSecond").setEnabled(false);
    traced.box("txtThird").setVisible(false);
    for (const char* name : {"txtSecond", "txtThird"}) {
        try {
            traced.box(name).setFocus();
            ADD_FAILURE() << name << " took the focus";
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), 5);
        }
    }
    EXPECT_EQ(active(), "txtFirst");
}

TEST_F(EventOrderFocus, AControlSendsTheFocusBackFromItsLostFocus) {
    traced.during["txtFirst_LostFocus"] = [&] {
        if (active() == "txtSecond") {
            traced.box("txtFirst").setFocus();
        }
    };
    robot.tab();
    EXPECT_EQ(take(), "txtFirst_Validate(in txtFirst) txtFirst_LostFocus(to txtSecond) "
                      "txtFirst_GotFocus");
    EXPECT_EQ(active(), "txtFirst");
    robot.typeText("x");
    EXPECT_EQ(traced.box("txtFirst").text(), "x");
}

TEST_F(EventOrderFocus, AControlSendsTheFocusOnFromItsGotFocus) {
    traced.during["txtSecond_GotFocus"] = [&] { traced.box("txtThird").setFocus(); };
    robot.tab();
    EXPECT_EQ(take(), "txtFirst_Validate(in txtFirst) txtFirst_LostFocus(to txtSecond) "
                      "txtSecond_GotFocus txtSecond_LostFocus(to txtThird) txtThird_GotFocus");
    EXPECT_EQ(active(), "txtThird");
}

TEST_F(EventOrderFocus, AButtonIsNotPressedWhenTheFocusWasSentToAThirdControl) {
    traced.during["txtFirst_LostFocus"] = [&] { traced.box("txtThird").setFocus(); };
    robot.click(traced.form(), "cmdPress");
    EXPECT_EQ(take(), "txtFirst_Validate(in txtFirst) txtFirst_LostFocus(to cmdPress) "
                      "txtThird_GotFocus");
    EXPECT_EQ(active(), "txtThird");
}

TEST_F(EventOrderFocus, AButtonFromWhichTheFocusWentStraightBackIsPressedAllTheSame) {
    traced.during["txtFirst_LostFocus"] = [&] { traced.box("txtFirst").setFocus(); };
    robot.click(traced.form(), "cmdPress");
    EXPECT_EQ(take(), "txtFirst_Validate(in txtFirst) txtFirst_LostFocus(to cmdPress) "
                      "txtFirst_GotFocus cmdPress_Click");
    EXPECT_EQ(active(), "txtFirst");
    robot.accessKey('p');
    EXPECT_EQ(take(), "txtFirst_Validate(in txtFirst) txtFirst_LostFocus(to cmdPress) "
                      "txtFirst_GotFocus cmdPress_Click");
}

TEST_F(EventOrderFocus, TabVisitsTheControlsInTheOrderOfTheTable) {
    std::string visited;
    for (int i = 0; i < 10; ++i) {
        robot.tab();
        visited += active() + " ";
    }
    EXPECT_EQ(visited, "txtSecond cboList chkBox optKind0 txtThird cmdPress cmdFree cmdTwin "
                       "cmdTwinToo txtFirst ");
}

TEST_F(EventOrderFocus, ShiftTabVisitsThemBackwards) {
    std::string visited;
    for (int i = 0; i < 10; ++i) {
        robot.shiftTab();
        visited += active() + " ";
    }
    EXPECT_EQ(visited, "cmdTwinToo cmdTwin cmdFree cmdPress txtThird optKind0 chkBox cboList "
                       "txtSecond txtFirst ");
}

TEST_F(EventOrderFocus, TabSkipsWhatIsDisabledHiddenOrNoStop) {
    traced.box("txtSecond").setEnabled(false);
    traced.get<ComboBox>("cboList").setVisible(false);
    traced.get<CheckBox>("chkBox").setTabStop(false);
    robot.tab();
    EXPECT_EQ(active(), "optKind0");
    robot.shiftTab();
    EXPECT_EQ(active(), "txtFirst");
}

TEST_F(EventOrderFocus, WithNoActiveControlTabGoesOnFromTheLastOne) {
    focusOn("chkBox");
    traced.get<CheckBox>("chkBox").setEnabled(false);
    robot.tab();
    EXPECT_EQ(active(), "optKind0");
}

TEST_F(EventOrderFocus, OfAnOptionArrayTheSelectedButtonIsTheStop) {
    traced.get<OptionButton>("optKind", 2).select();
    focusOn("chkBox");
    robot.tab();
    EXPECT_EQ(active(), "optKind2");
    robot.tab();
    EXPECT_EQ(active(), "txtThird");
    robot.shiftTab();
    EXPECT_EQ(active(), "optKind2");
}

TEST_F(EventOrderFocus, ArrowsMoveTheSelectionInsideAnOptionArray) {
    traced.get<OptionButton>("optKind", 0).select();
    focusOn("optKind", 0);
    watch(watchValues);
    robot.key(keycode::down);
    EXPECT_EQ(take(), "optKind1_Click");
    EXPECT_EQ(active(), "optKind1");
    robot.key(keycode::right);
    robot.key(keycode::right);
    EXPECT_EQ(take(), "optKind2_Click optKind0_Click");
    robot.key(keycode::up);
    EXPECT_EQ(take(), "optKind2_Click");
    EXPECT_TRUE(traced.get<OptionButton>("optKind", 2).selected());
    EXPECT_FALSE(traced.get<OptionButton>("optKind", 0).selected());
}

TEST_F(EventOrderFocus, DisablingTheActiveControlLeavesNoneAndRaisesNoLostFocus) {
    traced.box("txtFirst").setEnabled(false);
    EXPECT_EQ(take(), "");
    EXPECT_EQ(active(), "nothing");
    traced.box("txtFirst").setEnabled(true);
    EXPECT_EQ(active(), "nothing");
    traced.box("txtThird").setFocus();
    EXPECT_EQ(take(), "txtThird_GotFocus");
}

TEST_F(EventOrderFocus, HidingTheActiveControlLeavesNoneAndRaisesNoLostFocus) {
    traced.box("txtFirst").setVisible(false);
    EXPECT_EQ(take(), "");
    EXPECT_EQ(active(), "nothing");
    robot.click(traced.form(), "txtSecond");
    EXPECT_EQ(take(), "txtSecond_GotFocus");
}

TEST_F(EventOrderFocus, ChoosingFromAListMovesTheFocusThereFirst) {
    robot.chooseItem(traced.form(), "cboList", 1);
    EXPECT_EQ(take(), "txtFirst_Validate(in txtFirst) txtFirst_LostFocus(to cboList) "
                      "cboList_GotFocus cboList_Click");
    EXPECT_EQ(traced.get<ComboBox>("cboList").text(), "bee");
}

TEST_F(EventOrderFocus, NothingIsChosenFromAListWhenTheValidationRefuses) {
    traced.refusing.insert("txtFirst");
    robot.chooseItem(traced.form(), "cboList", 1);
    EXPECT_EQ(take(), "txtFirst_Validate(in txtFirst)");
    EXPECT_EQ(traced.get<ComboBox>("cboList").listIndex(), -1);
}

TEST_F(EventOrderFocus, LabelsFramesAndPicturesTakeNoFocusFromAClick) {
    robot.click(traced.form(), "lblSecond");
    robot.click(traced.form(), "picIcon");
    EXPECT_EQ(take(), "");
    EXPECT_EQ(active(), "txtFirst");
}

TEST_F(EventOrderFocus, MenusMoveNoFocusAndAskNoValidation) {
    traced.refusing.insert("txtFirst");
    robot.chooseMenu(traced.form(), "mnuRun");
    EXPECT_EQ(take(), "mnuTools_Click mnuRun_Click");
    EXPECT_EQ(active(), "txtFirst");
}

} // namespace
} // namespace tollvane::test
