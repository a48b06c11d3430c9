// A start that fails says so once, in the words of the step that failed, and shows no form.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

const std::string kOpening = "There was an error loading the application.\r\n\r\n";

class StartFailure : public TillTest {
protected:
    void expectRefusedWith(const std::string& text) {
        till.start();
        EXPECT_EQ(till.boxes(), (std::vector<Message>{information("", text)}));
        EXPECT_FALSE(till.isOpen());
    }
};

TEST_F(StartFailure, MissingEnvironmentComponentIsNamedInFrontOfTheSystemsDescription) {
    till.desktop.automation.unregister("prjHabitat.clsHabitatI");

    expectRefusedWith(kOpening + "Error: 429, Error creating Environment object. "
                                 "ActiveX component can't create object");
}

TEST_F(StartFailure, MissingChargeComponentIsNamedInFrontOfTheSystemsDescription) {
    till.desktop.automation.unregister("ZendaSwiftill.Tollvane");

    expectRefusedWith(kOpening + "Error: 429, Error creating ZendaCard object. "
                                 "ActiveX component can't create object");
}

TEST_F(StartFailure, MissingChargeComponentLogsNobodyIn) {
    till.desktop.automation.unregister("ZendaSwiftill.Tollvane");

    till.start();

    EXPECT_TRUE(till.desktop.charge.loggedUsers.empty());
}

TEST_F(StartFailure, MissingHostDataServerIsAnAuthorizationError) {
    till.desktop.automation.unregister("dcZenda32.dcclsZenda32");

    expectRefusedWith(kOpening + "Error: 429, Authorization error. "
                                 "ActiveX component can't create object");
}

TEST_F(StartFailure, RefusedCommandLineIsNamed) {
    till.desktop.program.arguments = "/nonsense";
    till.desktop.record.failNext("environment.INIT",
                                 Error(-2147220991, "Habitat", "Unknown switch."));

    expectRefusedWith(kOpening + "Error: -2147220991, "
                                 "Error setting Environment command line object. Unknown switch.");
}

TEST_F(StartFailure, ChargeComponentThatFailsToLogTheOperatorIsReported) {
    till.desktop.record.failNext("charge.LogLoggedInUser", Error(57, "charge", "Disk is full."));

    expectRefusedWith(kOpening + "Error: 57, Disk is full.");
}

TEST_F(StartFailure, SettingsThatCannotBeReadAreReported) {
    till.desktop.registry.failNext("openKeyEx", registry::accessDenied);

    till.start();

    const std::vector<Message> boxes = till.boxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_TRUE(boxes[0].text.starts_with(kOpening + "Error: 5, ")) << boxes[0];
    EXPECT_EQ(boxes[0].title, "");
    EXPECT_FALSE(till.isOpen());
}

TEST_F(StartFailure, StateThatHasNoNameLeavesTheFieldsTheirLengths) {
    till.desktop.program.strings.erase(205);

    till.start();

    const std::vector<Message> boxes = till.boxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_TRUE(boxes[0].text.starts_with(
        "There was an error preparing the entry fields.\r\n\r\nError: 326, "))
        << boxes[0];
    ASSERT_TRUE(till.isOpen());
    EXPECT_EQ(till.box("txtAuthNum").maxLength(), 6);
    EXPECT_EQ(till.box("txtCardNumber").maxLength(), 22);
    till.expectUsable();
}

TEST_F(StartFailure, BoxThatCannotBeShownStillEndsTheStartQuietly) {
    till.desktop.automation.unregister("ZendaSwiftill.Tollvane");
    till.desktop.faults.failAt(Port::messageBoxes, 1, 7);

    EXPECT_NO_THROW(till.start());

    EXPECT_FALSE(till.isOpen());
}

} // namespace
} // namespace tollvane::test
