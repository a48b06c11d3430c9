// Impatient operators: a second press while a box is open or while the gateway works never reaches
// the gateway a second time.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

class Impatience : public OpenTillTest {
protected:
    /// Presses submit in every way that an operator has, once while something else is going on.
    void pressAgain() {
        if (pressing_) {
            return;
        }
        pressing_ = true;
        ++presses_;
        till.submit();
        till.desktop.robot->accessKey('S');
        till.desktop.robot->key(keycode::space);
        till.desktop.robot->key(keycode::enter);
        pressing_ = false;
    }
    std::vector<std::string> titles() {
        std::vector<std::string> titles;
        for (const Message& box : till.boxes()) {
            titles.push_back(box.title);
        }
        return titles;
    }

    bool pressing_ = false;
    int presses_ = 0;
};

TEST_F(Impatience, WhileTheGatewayWorksChargesOnce) {
    till.fillCharge();
    till.desktop.charge.duringOperation = [this](const ChargeOperation&) { pressAgain(); };

    till.submit();

    EXPECT_EQ(presses_, 1);
    EXPECT_EQ(till.operations().size(), 1U);
    EXPECT_EQ(titles(), (std::vector<std::string>{"Approved"}));
    EXPECT_EQ(till.desktop.hostData.posted.size(), 1U);
    till.expectUsable();
}

TEST_F(Impatience, WhileTheApprovalIsShownChargesOnce) {
    till.fillCharge();
    till.desktop.boxes.whileOpen = [this](const Message&) { pressAgain(); };

    till.submit();

    EXPECT_EQ(presses_, 1);
    EXPECT_EQ(till.operations().size(), 1U);
    EXPECT_EQ(titles(), (std::vector<std::string>{"Approved"}));
    EXPECT_EQ(till.desktop.hostData.posted.size(), 1U);
    till.expectUsable();
}

TEST_F(Impatience, WhileADeclineIsShownSubmitsNothing) {
    till.fillCharge();
    till.desktop.charge.answer(declined(2, 2, "Declined."));
    till.desktop.boxes.whileOpen = [this](const Message&) { pressAgain(); };

    till.submit();

    EXPECT_EQ(presses_, 1);
    EXPECT_EQ(till.operations().size(), 1U);
    EXPECT_EQ(titles(), (std::vector<std::string>{"Authorization Failed"}));
    till.expectUsable();
}

TEST_F(Impatience, WhileACheckIsReportedValidatesOnce) {
    till.fillCharge();
    till.enter("txtCardName", "");
    till.desktop.boxes.whileOpen = [this](const Message&) { pressAgain(); };

    till.submit();

    EXPECT_EQ(presses_, 1);
    EXPECT_EQ(till.desktop.charge.cleared, 1);
    EXPECT_EQ(titles(), (std::vector<std::string>{"Invalid Field"}));
    EXPECT_EQ(till.focus(), "txtCardName");
    till.expectUsable();
}

TEST_F(Impatience, WhileAQuestionIsOpenChargesOnce) {
    till.fillCharge();
    till.set(option::shopAddress, true);
    till.enter("txtBillToZip", "");
    till.desktop.boxes.answer(MessageAnswer::no);
    till.desktop.boxes.whileOpen = [this](const Message& box) {
        if (box.buttons == MessageButtons::yesNo) {
            pressAgain();
        }
    };

    till.submit();

    EXPECT_EQ(presses_, 1);
    EXPECT_EQ(till.operations().size(), 1U);
    EXPECT_EQ(titles(), (std::vector<std::string>{"Incomplete Billing Address", "Approved"}));
}

TEST_F(Impatience, WhileAnErrorIsShownSubmitsNothing) {
    till.fillCharge();
    till.desktop.charge.failOperation(Error(70, "charge", "Permission denied"));
    till.desktop.boxes.whileOpen = [this](const Message&) { pressAgain(); };

    till.submit();

    EXPECT_EQ(presses_, 1);
    EXPECT_EQ(till.operations().size(), 1U);
    EXPECT_EQ(till.boxes().size(), 1U);
    till.expectUsable();
}

TEST_F(Impatience, WhileAPaymentCannotBePostedChargesOnce) {
    till.fillCharge();
    till.desktop.record.failNext("payment.Update", Error(70, "Update", "Permission denied"));
    till.desktop.boxes.whileOpen = [this](const Message&) { pressAgain(); };

    till.submit();

    EXPECT_EQ(till.operations().size(), 1U);
    EXPECT_TRUE(till.program().TransactionApproved());
    till.boxes();
}

TEST_F(Impatience, AfterwardsADoublePressIsToldThatItWasAuthorized) {
    till.fillCharge();

    till.submit();
    till.submit();
    till.submit();

    EXPECT_EQ(till.operations().size(), 1U);
    EXPECT_EQ(titles(), (std::vector<std::string>{"Approved", "Transaction Already Authorized",
                                                  "Transaction Already Authorized"}));
}

TEST_F(Impatience, OfAnotherKindWhileTheGatewayWorksChangesNothing) {
    till.fillCharge();
    till.desktop.charge.duringOperation = [this](const ChargeOperation&) {
        till.choose(1);
        till.press("cmdCancel");
        till.press("cmdModify");
    };

    till.submit();

    EXPECT_TRUE(till.isOpen());
    EXPECT_EQ(till.program().TransType(), 0);
    EXPECT_EQ(titles(), (std::vector<std::string>{"Approved"}));
    EXPECT_EQ(till.desktop.hostData.posted.at(0).value("Amount"), Variant(Money::fromUnits(25)));
}

} // namespace
} // namespace tollvane::test
