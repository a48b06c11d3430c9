// An error after the gateway was asked: the card may have been charged without a payment record.
// The box tells the error; the status bar goes on saying which payment is concerned.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

class OpenPayments : public OpenTillTest {
protected:
    void SetUp() override {
        OpenTillTest::SetUp();
        till.fillCharge();
        usual_ = till.status();
    }
    void failAt(const char* member) {
        till.desktop.record.failNext(member, Error(70, "component", "Permission denied"));
        till.submit();
        EXPECT_EQ(
            till.boxes(),
            (std::vector<Message>{information("", "There was an error getting an approval.\r\n\r\n"
                                                  "Error: 70, Permission denied")}));
    }

    std::string usual_;
};

TEST_F(OpenPayments, AreNamedAfterAnUpdateThatFailed) {
    failAt("payment.Update");

    EXPECT_EQ(till.status(),
              "Approved, but perhaps not recorded: 7001, authorization of $25.00 at 09:05   " +
                  usual_);
    EXPECT_TRUE(till.program().TransactionApproved());
}

TEST_F(OpenPayments, AreNamedAfterAnAnswerThatCouldNotBeRead) {
    failAt("charge.ApprovalCode");

    EXPECT_TRUE(till.status().starts_with("Approved, but perhaps not recorded: 7001, "))
        << till.status();
    till.submit();
    EXPECT_EQ(till.operations().size(), 1U) << "it is not charged again";
    till.boxes();
}

TEST_F(OpenPayments, AreNamedByAmountAndTimeWhenTheirIdCannotBeRead) {
    till.desktop.record.failNext("charge.TransactionID",
                                 Error(70, "component", "Permission denied"));
    failAt("charge.TransactionID");

    EXPECT_EQ(till.status(),
              "Approved, but perhaps not recorded: authorization of $25.00 at 09:05   " + usual_);
}

TEST_F(OpenPayments, OfUnknownOutcomeAreToBeLookedUpInTheLog) {
    failAt("charge.AuthorizeAndCapture");

    EXPECT_EQ(till.status(),
              "See the transaction log: authorization of $25.00 at 09:05   " + usual_);
    EXPECT_FALSE(till.program().TransactionApproved());
}

TEST_F(OpenPayments, StayInSightTheNewestFirst) {
    failAt("payment.Update");
    till.choose(1);
    till.fillRefund();
    failAt("charge.Credit");

    EXPECT_EQ(till.status(),
              "See the transaction log: refund of $25.00 at 09:05   "
              "Approved, but perhaps not recorded: 7001, authorization of $25.00 at 09:05   " +
                  usual_);
}

TEST_F(OpenPayments, AreNoneAfterAnApprovalOrADecline) {
    till.submit();
    EXPECT_EQ(till.status(), usual_);
    till.choose(1);
    till.fillRefund();
    till.desktop.charge.answer(declined(2, 2, "Declined."));
    till.submit();
    EXPECT_EQ(till.status(), usual_);
    till.boxes();
}

TEST_F(OpenPayments, AreNoneWhenNothingWasAskedOfTheGateway) {
    failAt("charge.ClearFields");

    EXPECT_EQ(till.status(), usual_);
}

} // namespace
} // namespace tollvane::test
