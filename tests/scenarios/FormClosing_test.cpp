// The transaction form at work and at its end: its caption, its pop-up menu, what closing it does.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

const std::string kTestModeCaption = "Credit Card Charge/Credit   ** TEST MODE **";

class Caption : public TillTest {};

TEST_F(Caption, ShowsTestMode) {
    till.desktop.charge.testMode = true;
    till.open();
    EXPECT_EQ(till.form().caption(), kTestModeCaption);
}

TEST_F(Caption, IsBareOutsideTestMode) {
    till.desktop.charge.testMode = false;
    till.open();
    EXPECT_EQ(till.form().caption(), "Credit Card Charge/Credit");
}

TEST_F(Caption, FollowsTheTestModeWhenTheFormIsActivatedAgain) {
    till.open();
    till.desktop.robot->leaveForAnotherProgram();
    till.desktop.charge.testMode = true;
    till.desktop.robot->comeBackTo(till.form());
    EXPECT_EQ(till.form().caption(), kTestModeCaption);
}

TEST_F(Caption, FollowsTheTestModeAfterTheGatewayWasConfigured) {
    till.open();
    till.desktop.charge.onConfigureGateway = [this] { till.desktop.charge.testMode = true; };
    till.desktop.robot->planPopUp("mnu_PGateway");

    till.press("cmdModify");

    EXPECT_EQ(till.desktop.charge.gatewayConfigured, 1);
    EXPECT_EQ(till.form().caption(), kTestModeCaption);
}

TEST_F(Caption, OfAFailingComponentStaysAndIsReported) {
    till.desktop.record.failNext("charge.TestMode", Error(70, "charge", "Permission denied"));

    till.start();

    EXPECT_EQ(till.boxes(), (std::vector<Message>{
                                information("", "There was an error activating the form.\r\n\r\n"
                                                "Error: 70, Permission denied")}));
    EXPECT_EQ(till.form().caption(), "Credit Card Charge/Credit");
}

TEST_F(Caption, OfAComponentThatKeepsFailingIsReportedOnce) {
    till.desktop.charge.script().readOnly(
        "TestMode", []() -> Variant { throw Error(70, "charge", "Permission denied"); });
    till.start();

    // Closing a message box activates the form again.
    for (int i = 0; i < 3; ++i) {
        till.desktop.robot->leaveForAnotherProgram();
        till.desktop.robot->comeBackTo(till.form());
    }

    EXPECT_EQ(till.boxes().size(), 1U);
}

class ConfigureButton : public OpenTillTest {};

TEST_F(ConfigureButton, OpensThePopUpMenuWithTheGatewaysSettings) {
    till.desktop.robot->planPopUp("mnu_PSettings");

    till.press("cmdModify");

    EXPECT_EQ(till.desktop.charge.settingsConfigured, 1);
    EXPECT_EQ(till.desktop.charge.gatewayConfigured, 0);
}

TEST_F(ConfigureButton, DismissedPopUpDoesNothing) {
    till.press("cmdModify");

    EXPECT_EQ(till.desktop.charge.settingsConfigured, 0);
    EXPECT_EQ(till.desktop.charge.gatewayConfigured, 0);
    EXPECT_EQ(till.boxes(), std::vector<Message>());
}

class ClosingTheForm : public OpenTillTest {
protected:
    std::optional<std::uint32_t> stored(const char* name) {
        return till.desktop.registry.number(
            "HKEY_LOCAL_MACHINE\\Software\\Norrow Programs\\Tollvane\\Window", name);
    }
};

TEST_F(ClosingTheForm, ByCancelEndsTheProgram) {
    till.press("cmdCancel");

    EXPECT_FALSE(till.isOpen());
    EXPECT_EQ(till.desktop.charge.freed, 1);
}

TEST_F(ClosingTheForm, ByTheCloseBoxEndsTheProgram) {
    till.desktop.robot->closeBox(till.form());

    EXPECT_FALSE(till.isOpen());
    EXPECT_EQ(till.desktop.charge.freed, 1);
}

TEST_F(ClosingTheForm, ByTheMenuEndsTheProgram) {
    till.desktop.robot->chooseMenu(till.form(), "mnuExit");

    EXPECT_FALSE(till.isOpen());
    EXPECT_EQ(till.desktop.charge.freed, 1);
}

TEST_F(ClosingTheForm, ByFinishedAfterAnApprovalEndsTheProgram) {
    till.approveCharge();
    ASSERT_EQ(till.button("cmdCancel").caption(), "Finished");

    till.press("cmdCancel");

    EXPECT_FALSE(till.isOpen());
    EXPECT_EQ(till.desktop.charge.freed, 1);
}

TEST_F(ClosingTheForm, StoresItsPosition) {
    till.form().move(1500, 750);

    till.press("cmdCancel");

    EXPECT_EQ(stored("X"), 1500U);
    EXPECT_EQ(stored("Y"), 750U);
}

TEST_F(ClosingTheForm, StoresNoPositionOfAMinimisedForm) {
    till.desktop.robot->setWindowState(till.form(), WindowState::minimised);

    till.desktop.robot->closeBox(till.form());

    EXPECT_EQ(stored("X"), std::nullopt);
    EXPECT_EQ(till.desktop.charge.freed, 1);
}

TEST_F(ClosingTheForm, SavesNothingElseToTheSettings) {
    till.fillCharge();
    till.desktop.registry.forgetCalls();

    till.press("cmdCancel");

    std::vector<std::string> written;
    for (const RegistryCall& call : till.desktop.registry.callsOf("setValueEx")) {
        written.push_back(call.subKey);
    }
    EXPECT_EQ(written, (std::vector<std::string>{"X", "Y"}));
}

TEST_F(ClosingTheForm, PositionThatCannotBeStoredIsNoReasonToStay) {
    till.desktop.registry.deny("HKEY_LOCAL_MACHINE\\Software", registry::anyWrite);

    till.press("cmdCancel");

    EXPECT_EQ(till.boxes(), std::vector<Message>());
    EXPECT_FALSE(till.isOpen());
    EXPECT_EQ(till.desktop.charge.freed, 1);
}

TEST_F(ClosingTheForm, ComponentThatFailsToFreeItselfIsReportedAndTheProgramEnds) {
    till.desktop.record.failNext("charge.Free", Error(70, "charge", "Permission denied"));

    till.press("cmdCancel");

    EXPECT_EQ(till.boxes(),
              (std::vector<Message>{information("", "There was an error closing the form.\r\n\r\n"
                                                    "Error: 70, Permission denied")}));
    EXPECT_FALSE(till.isOpen());
}

TEST_F(ClosingTheForm, DropsBothComponents) {
    const long charge = till.desktop.charge.object().use_count();
    const long environment = till.desktop.environment.object().use_count();

    till.press("cmdCancel");

    EXPECT_EQ(till.desktop.charge.object().use_count(), charge - 1);
    EXPECT_EQ(till.desktop.environment.object().use_count(), environment - 1);
}

TEST_F(ClosingTheForm, CallsNothingOnTheChargeComponentAfterFree) {
    till.press("cmdCancel");

    EXPECT_EQ(till.desktop.record.texts("charge.").back(), "charge.Free()");
}

TEST_F(ClosingTheForm, LeavesTheCaptionAsItIsFromThenOn) {
    till.press("cmdCancel");
    till.desktop.record.forget();

    till.form().on.activate();

    EXPECT_EQ(till.desktop.record.texts("charge."), std::vector<std::string>());
    EXPECT_EQ(till.boxes(), std::vector<Message>());
}

TEST_F(ClosingTheForm, WipesTheCardData) {
    till.fillCharge();
    till.enter("txtMagStripe", "%B4111111111111111^SMITH/JOHN^2712101000000?");

    till.press("cmdCancel");

    // The controls live on, emptied, as long as the form's object does.
    for (const char* name : {"txtCardNumber", "txtCardCode", "txtMagStripe", "txtKbBuffer"}) {
        EXPECT_EQ(till.text(name), "") << name;
    }
}

class StateName : public OpenTillTest {};

TEST_F(StateName, IsHiddenByTheTimerOnce) {
    Label& name = till.form().control<Label>("lblStateName");
    Timer& timer = till.form().control<Timer>("tmrDisplay");
    name.setVisible(true);
    timer.setEnabled(true);

    till.desktop.robot->letTimePass(timer.interval() + 100);

    EXPECT_FALSE(name.visible());
    EXPECT_FALSE(timer.enabled());
}

} // namespace
} // namespace tollvane::test
