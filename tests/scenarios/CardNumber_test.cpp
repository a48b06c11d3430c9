// The judgement of a keyed card number, when the box is left and when it is asked for.

#include "entry/CardNumberValidation.h"
#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

const char* const kRejected = "The credit card number contains errors.\r\n\r\n"
                              "Correct the card number to continue.";

class CardNumberRoutine : public TillTest {
protected:
    bool validate(const char* number) {
        return ValidateCardNumber(till.desktop.desktop(), SecretText(number));
    }
};

TEST_F(CardNumberRoutine, EmptyNumberAnswersFalseWithoutAWord) {
    EXPECT_FALSE(validate(""));
    EXPECT_EQ(till.boxes(), std::vector<Message>());
    EXPECT_TRUE(till.desktop.automation.created.empty()) << "no checker was made";
}

TEST_F(CardNumberRoutine, AcceptableNumberAnswersTrueWithoutAWord) {
    EXPECT_TRUE(validate("4111111111111111"));
    EXPECT_EQ(till.boxes(), std::vector<Message>());
}

TEST_F(CardNumberRoutine, RejectedNumberAnswersFalseWithOneBox) {
    EXPECT_FALSE(validate("4111111111111112"));
    EXPECT_EQ(till.boxes(), (std::vector<Message>{information("Invalid Card Number", kRejected)}));
}

TEST_F(CardNumberRoutine, CreatesTheCheckerByItsClassAndInterface) {
    validate("4111111111111111");

    ASSERT_EQ(till.desktop.automation.created.size(), 1U);
    EXPECT_EQ(till.desktop.automation.created[0],
              (FakeAutomation::Creation{"{B0FF1329-8BB0-4C7B-BE63-416A3AEAA8D3}", "",
                                        "{6FDC8BBD-2006-4705-A971-5484FF971CBD}"}));
}

TEST_F(CardNumberRoutine, CreatesANewCheckerForEachNumberAndReleasesIt) {
    const ObjectRef checker = till.desktop.checker.object();
    const long before = checker.use_count();

    validate("4111111111111111");
    EXPECT_EQ(checker.use_count(), before) << "accepted";
    validate("4111111111111112");
    EXPECT_EQ(checker.use_count(), before) << "rejected";
    till.desktop.checker.error = Error(5, "checker", "Out of order.");
    validate("4111111111111111");
    EXPECT_EQ(checker.use_count(), before) << "failed";
    EXPECT_EQ(till.desktop.automation.created.size(), 3U);
    till.boxes();
}

TEST_F(CardNumberRoutine, HandsTheNumberOverAsItWasTyped) {
    till.desktop.checker.accepts = [](std::string_view) { return true; };

    validate("4111 1111-1111 1111");

    ASSERT_EQ(till.desktop.checker.checked.size(), 1U);
    EXPECT_EQ(till.desktop.checker.checked[0].view(), "4111 1111-1111 1111");
}

TEST_F(CardNumberRoutine, MissingCheckerIsReportedAndTheNumberCountsAsInvalid) {
    till.desktop.automation.unregister("{B0FF1329-8BB0-4C7B-BE63-416A3AEAA8D3}");

    EXPECT_FALSE(validate("4111111111111111"));

    // The fake names the class as the source of its error.
    EXPECT_EQ(till.boxes(), (std::vector<Message>{information(
                                "{B0FF1329-8BB0-4C7B-BE63-416A3AEAA8D3}:ValidateCardNumber",
                                "There was an error validating the credit card number.\r\n\r\n"
                                "Error: 429 ,ActiveX component can't create object")}));
}

TEST_F(CardNumberRoutine, FailingCheckerIsReportedWithItsSource) {
    till.desktop.checker.error = Error(-2147220992, "zendacard", "The table is damaged.");

    EXPECT_FALSE(validate("4111111111111111"));

    EXPECT_EQ(till.boxes(), (std::vector<Message>{information(
                                "zendacard:ValidateCardNumber",
                                "There was an error validating the credit card number.\r\n\r\n"
                                "Error: -2147220992 ,The table is damaged.")}));
}

class LeavingTheCardNumber : public OpenTillTest {
protected:
    void type(const char* number) {
        till.desktop.robot->click(till.form(), "txtCardNumber");
        till.desktop.robot->typeText(number);
    }
};

TEST_F(LeavingTheCardNumber, EmptyTriggersNoCheck) {
    type("");

    till.desktop.robot->tab();

    EXPECT_EQ(till.focus(), "txtCardCode");
    EXPECT_TRUE(till.desktop.checker.checked.empty());
    EXPECT_EQ(till.boxes(), std::vector<Message>());
}

TEST_F(LeavingTheCardNumber, AcceptedGoesOn) {
    type("4111111111111111");

    till.desktop.robot->tab();

    EXPECT_EQ(till.focus(), "txtCardCode");
    EXPECT_EQ(till.desktop.checker.checked.size(), 1U);
}

TEST_F(LeavingTheCardNumber, RejectedIsToldOnceAndKeepsTheFocusWithTheTextSelected) {
    type("4111111111111112");
    till.box("txtCardNumber").select(3, 0);

    till.desktop.robot->tab();

    EXPECT_EQ(till.boxes(), (std::vector<Message>{information("Invalid Card Number", kRejected)}));
    EXPECT_EQ(till.focus(), "txtCardNumber");
    EXPECT_EQ(till.box("txtCardNumber").selStart(), 0);
    EXPECT_EQ(till.box("txtCardNumber").selLength(), 16);
}

TEST_F(LeavingTheCardNumber, RejectedByTheMouseWithTheButtonHeldKeepsItsCaret) {
    type("4111111111111112");
    till.box("txtCardNumber").select(3, 0);
    till.desktop.mouse.down = true;

    till.desktop.robot->tab();

    EXPECT_EQ(till.focus(), "txtCardNumber");
    EXPECT_EQ(till.box("txtCardNumber").selLength(), 0);
    till.boxes();
}

TEST_F(LeavingTheCardNumber, RejectedKeepsTheOtherBoxOutOfReachOfTheMouse) {
    type("4111111111111112");

    till.desktop.robot->click(till.form(), "txtDescription");

    EXPECT_EQ(till.focus(), "txtCardNumber");
    EXPECT_EQ(till.boxes().size(), 1U);
}

TEST_F(LeavingTheCardNumber, RejectedPressesNoSubmit) {
    till.fillCharge();
    till.enter("txtCardNumber", "");
    type("4111111111111112");

    till.submit();

    EXPECT_EQ(till.boxes(), (std::vector<Message>{information("Invalid Card Number", kRejected)}));
    EXPECT_TRUE(till.operations().empty());
    EXPECT_EQ(till.desktop.charge.cleared, 0);
}

TEST_F(LeavingTheCardNumber, OfARefundTheLastFourDigitsAreEnough) {
    till.choose(1);
    type("1111");

    till.desktop.robot->tab();

    EXPECT_EQ(till.focus(), "txtAmount");
    EXPECT_EQ(till.boxes(), std::vector<Message>());
    EXPECT_TRUE(till.desktop.checker.checked.empty());
}

TEST_F(LeavingTheCardNumber, OfARefundAWholeNumberIsJudged) {
    till.choose(1);
    type("4111111111111112");

    till.desktop.robot->tab();

    EXPECT_EQ(till.focus(), "txtCardNumber");
    EXPECT_EQ(till.boxes().size(), 1U);
}

TEST_F(LeavingTheCardNumber, OfAChargeFourDigitsAreJudged) {
    type("1111");

    till.desktop.robot->tab();

    EXPECT_EQ(till.focus(), "txtCardNumber");
    EXPECT_EQ(till.boxes().size(), 1U);
}

TEST_F(LeavingTheCardNumber, MissingCheckerKeepsTheFocusAndTheProgramRunning) {
    till.desktop.automation.unregister("{B0FF1329-8BB0-4C7B-BE63-416A3AEAA8D3}");
    type("4111111111111111");

    till.desktop.robot->tab();

    EXPECT_EQ(till.boxes().size(), 1U);
    EXPECT_EQ(till.focus(), "txtCardNumber");
    till.expectUsable();
}

TEST_F(LeavingTheCardNumber, ForAnotherProgramTriggersNoCheck) {
    type("4111111111111112");

    till.desktop.robot->leaveForAnotherProgram();
    till.desktop.robot->comeBackTo(till.form());

    EXPECT_TRUE(till.desktop.checker.checked.empty());
    EXPECT_EQ(till.focus(), "txtCardNumber");
    till.enter("txtCardNumber", "");
}

} // namespace
} // namespace tollvane::test
