// What a submission leaves behind for the operator: the box, the focus, the fields.

#include "tests/scenarios/ValidationTest.h"

namespace tollvane::test {
namespace {

struct Outcome {
    const char* what;
    int type;
    bool byTelephone;
    const char* operationName;
};

void PrintTo(const Outcome& row, std::ostream* out) {
    *out << row.what;
}

class OutcomeOf : public OpenTillTest, public ::testing::WithParamInterface<Outcome> {
protected:
    void SetUp() override {
        OpenTillTest::SetUp();
        switch (GetParam().type) {
        case 0: till.fillCharge(); break;
        case 1: till.fillRefund(); break;
        default: till.fillVoid(); break;
        }
        if (GetParam().byTelephone) {
            till.press("chkVoiceAuth");
            till.enter("txtAuthNum", "V12345");
        }
    }
};

TEST_P(OutcomeOf, AnApprovalIsToldInOneBoxAndTheFocusIsOnFinished) {
    till.submit();

    EXPECT_EQ(
        till.boxes(),
        (std::vector<Message>{information(
            "Approved", "The " + std::string(GetParam().operationName) +
                            " was successful.\r\n\r\nAproval code:\tA1B2C3\r\n"
                            "Transaction ID:\t7001\r\nThis transaction has been approved.")}));
    EXPECT_EQ(till.button("cmdCancel").caption(), "Finished");
    EXPECT_EQ(till.focus(), "cmdCancel");
}

TEST_P(OutcomeOf, ADeclineReturnsTheFocusToSubmit) {
    till.desktop.charge.answer(declined(2, 2, "Declined."));

    till.submit();

    EXPECT_EQ(till.boxes().at(0).title, "Authorization Failed");
    EXPECT_EQ(till.focus(), "cmdSubmit");
}

TEST_P(OutcomeOf, AFailedPostingLeavesTheFocusOnFinished) {
    till.desktop.record.failNext("payment.Update", Error(70, "Update", "Disk is full."));

    till.submit();

    EXPECT_EQ(till.boxes(), (std::vector<Message>{
                                information("", "There was an error getting an approval.\r\n\r\n"
                                                "Error: 70, Disk is full.")}));
    EXPECT_EQ(till.focus(), "cmdCancel");
    till.expectUsable();
}

TEST_P(OutcomeOf, ASecondPressLeavesTheFocusOnSubmit) {
    till.submit();
    till.boxes();

    till.submit();

    EXPECT_EQ(till.boxes(),
              (std::vector<Message>{information("Transaction Already Authorized",
                                                "This transaction has already been authorized. "
                                                "Please enter a new transaction to continue.")}));
    EXPECT_EQ(till.focus(), "cmdSubmit");
}

TEST_P(OutcomeOf, TheTypeThatIsStillSelectedStartsANewEntryWhenClickedAfterAnApproval) {
    till.submit();
    till.boxes();
    ASSERT_TRUE(till.program().TransactionApproved());
    ASSERT_TRUE(till.kind(GetParam().type).selected());

    till.choose(GetParam().type);

    EXPECT_FALSE(till.program().TransactionApproved());
    EXPECT_EQ(till.program().TransType(), GetParam().type);
    EXPECT_EQ(till.button("cmdCancel").caption(), "Cancel");
    for (const char* name :
         {"txtCardName", "txtCardNumber", "txtAuthNum", "txtTransactionNumber", "txtDescription"}) {
        EXPECT_EQ(till.text(name), "") << name;
    }
    EXPECT_EQ(till.text("txtAmount"), "$0.00");
}

INSTANTIATE_TEST_SUITE_P(
    A, OutcomeOf,
    ::testing::Values(Outcome{"Charge", 0, false, "authorization"},
                      Outcome{"VoiceCapture", 0, true, "voice authorization capture"},
                      Outcome{"Refund", 1, false, "refund"}, Outcome{"Void", 2, false, "void"}),
    [](const auto& row) { return std::string(row.param.what); });

class FocusAfterAnError : public ChargeTest {
protected:
    void expectErrorAndFocusOnSubmit() {
        till.submit();
        const std::vector<Message> boxes = till.boxes();
        ASSERT_EQ(boxes.size(), 1U);
        EXPECT_EQ(boxes[0].title, "");
        EXPECT_TRUE(
            boxes[0].text.starts_with("There was an error getting an approval.\r\n\r\nError: "))
            << boxes[0];
        EXPECT_EQ(till.focus(), "cmdSubmit");
        EXPECT_TRUE(till.operations().empty());
        till.expectUsable();
    }
};

TEST_F(FocusAfterAnError, OfAnAmountThatIsNoMoneyIsOnSubmit) {
    till.enter("txtAmount", "abc");
    expectErrorAndFocusOnSubmit();
}

TEST_F(FocusAfterAnError, OfADecimalSignThatCannotBeReadIsOnSubmit) {
    till.desktop.locale.remove(localeitem::decimal);
    expectErrorAndFocusOnSubmit();
}

TEST_F(FocusAfterAnError, OfATaxThatIsNoMoneyIsOnSubmit) {
    till.enter("txtTaxAmount", "abc");
    expectErrorAndFocusOnSubmit();
}

TEST_F(FocusAfterAnError, OfAnExpiryThatWasNotChosenIsOnSubmit) {
    till.list("cboExpMonth").setListIndex(-1);
    till.list("cboExpYear").setListIndex(-1);
    till.boxes(); // taking the choice away has its own word
    expectErrorAndFocusOnSubmit();
}

TEST_F(FocusAfterAnError, OfTheGatewayIsOnSubmit) {
    till.desktop.charge.failOperation(Error(70, "charge", "Line is busy."));
    till.submit();
    EXPECT_EQ(till.boxes().size(), 1U);
    EXPECT_EQ(till.focus(), "cmdSubmit");
}

class CardDataAfterAnApproval : public ChargeTest {};

TEST_F(CardDataAfterAnApproval, OfAKeyedCardIsWithoutItsCode) {
    std::string code;
    till.desktop.boxes.whileOpen = [&](const Message&) { code = till.text("txtCardCode"); };

    till.submit();

    EXPECT_EQ(code, "") << "gone before the operator reads the outcome";
    EXPECT_EQ(till.text("txtCardCode"), "");
    EXPECT_EQ(till.text("txtCardNumber"), "4111111111111111");
}

TEST_F(CardDataAfterAnApproval, OfASwipedCardIsWithoutItsRecord) {
    till.enter("txtMagStripe", "%B4111111111111111^SMITH/JOHN^2712101000000?");
    std::string track = "unread";
    till.desktop.boxes.whileOpen = [&](const Message&) { track = till.text("txtMagStripe"); };

    till.submit();

    EXPECT_EQ(track, "") << "gone before the operator reads the outcome";
    EXPECT_EQ(till.text("txtMagStripe"), "");
}

TEST_F(CardDataAfterAnApproval, HasNoFollowingTrackInTheKeyboardBuffer) {
    till.enter("txtKbBuffer", ";4111111111111111=27121010000000?");
    std::string keys = "unread";
    till.desktop.boxes.whileOpen = [&](const Message&) { keys = till.text("txtKbBuffer"); };

    till.submit();

    EXPECT_EQ(keys, "") << "gone before the operator reads the outcome";
}

TEST_F(CardDataAfterAnApproval, OfATrackThatFollowedGoesWithAnEntryThatIsCleared) {
    till.enter("txtKbBuffer", ";4111111111111111=27121010000000?");

    till.program().ClearText();

    EXPECT_EQ(till.text("txtKbBuffer"), "");
}

TEST_F(CardDataAfterAnApproval, IsKeptAfterADecline) {
    till.desktop.charge.answer(declined(2, 2, "Declined."));

    till.submit();

    EXPECT_EQ(till.text("txtCardCode"), "123");
}

TEST_F(CardDataAfterAnApproval, LosesItsExpiryWithTheEntry) {
    ASSERT_EQ(till.list("cboExpMonth").listIndex(), 2);
    ASSERT_GE(till.list("cboExpYear").listIndex(), 0);

    till.program().ClearText();

    EXPECT_EQ(till.list("cboExpMonth").listIndex(), -1);
    EXPECT_EQ(till.list("cboExpYear").listIndex(), -1);
}

} // namespace
} // namespace tollvane::test
