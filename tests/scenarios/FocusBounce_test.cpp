// A control that must not keep the focus gives it back to the button that lost it.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

class FocusBounce : public OpenTillTest {
protected:
    void makeReachableByTab() { till.button("cmdModify").setTabStop(true); }
};

TEST_F(FocusBounce, ConfigureIsTheControlThatMustNotKeepTheFocus) {
    EXPECT_EQ(till.button("cmdModify").tag(), "No Focus");
    EXPECT_FALSE(till.button("cmdModify").tabStop());
}

TEST_F(FocusBounce, TabbingFromCancelSkipsConfigure) {
    till.button("cmdCancel").setFocus();

    till.desktop.robot->tab();

    EXPECT_NE(till.focus(), "cmdModify");
    EXPECT_NE(till.focus(), "cmdCancel");
}

TEST_F(FocusBounce, CancelTakesTheFocusBack) {
    makeReachableByTab();
    till.button("cmdCancel").setFocus();

    till.desktop.robot->tab();

    EXPECT_EQ(till.focus(), "cmdCancel");
}

TEST_F(FocusBounce, SubmitTakesTheFocusBack) {
    makeReachableByTab();
    till.button("cmdCancel").setTabStop(false);
    till.button("cmdSubmit").setFocus();

    till.desktop.robot->tab();

    EXPECT_EQ(till.focus(), "cmdSubmit");
}

TEST_F(FocusBounce, FollowsTheTagAndNotTheControl) {
    till.button("cmdModify").setTag("");
    makeReachableByTab();
    till.button("cmdCancel").setFocus();

    till.desktop.robot->tab();

    EXPECT_EQ(till.focus(), "cmdModify");
}

TEST_F(FocusBounce, TakesNothingBackWhenNobodyHasTheFocus) {
    till.button("cmdCancel").setFocus();
    till.button("cmdCancel").setEnabled(false);
    ASSERT_EQ(till.focus(), "");

    till.button("cmdSubmit").on.lostFocus();

    EXPECT_EQ(till.focus(), "");
    EXPECT_EQ(till.boxes(), std::vector<Message>());
}

TEST_F(FocusBounce, LeavesOtherWaysFromTheButtonsFree) {
    till.button("cmdSubmit").setFocus();

    till.desktop.robot->tab();
    EXPECT_EQ(till.focus(), "cmdCancel");

    till.desktop.robot->shiftTab();
    EXPECT_EQ(till.focus(), "cmdSubmit");

    till.desktop.robot->click(till.form(), "txtDescription");
    EXPECT_EQ(till.focus(), "txtDescription");
}

TEST_F(FocusBounce, ConfigureStillOpensItsMenuFromTheButtons) {
    for (const char* name : {"cmdSubmit", "cmdCancel"}) {
        const int before = till.desktop.charge.settingsConfigured;
        till.button(name).setFocus();
        till.desktop.robot->planPopUp("mnu_PSettings");

        till.press("cmdModify");

        EXPECT_EQ(till.desktop.charge.settingsConfigured, before + 1) << name;
    }
}

TEST_F(FocusBounce, ConfigureLeavesTheFocusWithTheButton) {
    till.button("cmdCancel").setFocus();
    till.desktop.robot->planPopUp("mnu_PSettings");

    till.press("cmdModify");

    EXPECT_EQ(till.focus(), "cmdCancel");
}

TEST_F(FocusBounce, AccessKeyOfConfigureOpensItsMenuFromTheButtons) {
    till.button("cmdSubmit").setFocus();
    till.desktop.robot->planPopUp("mnu_PSettings");

    till.desktop.robot->accessKey('F');

    EXPECT_EQ(till.desktop.charge.settingsConfigured, 1);
    EXPECT_EQ(till.focus(), "cmdSubmit");
}

} // namespace
} // namespace tollvane::test
