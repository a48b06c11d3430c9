// What reaches the form while the gateway works: nothing that changes the entry, and not even its
// end keeps the payment from being recorded.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

class BusyForm : public OpenTillTest {};

TEST_F(BusyForm, TakesNoSwipe) {
    till.fillCharge();
    till.desktop.charge.duringOperation = [this](const ChargeOperation&) {
        till.desktop.robot->typeText("%B5555555555554444^OTHER/CARD^3012101000000000?\r");
        till.desktop.robot->letTimePass(2500);
    };

    till.submit();

    EXPECT_EQ(till.boxes().at(0).title, "Approved");
    EXPECT_EQ(till.text("txtAmount"), "$25.00");
    EXPECT_EQ(till.text("txtCardNumber"), "4111111111111111");
    EXPECT_EQ(till.text("txtMagStripe"), "");
    EXPECT_TRUE(till.program().TransactionApproved());
    EXPECT_EQ(till.desktop.hostData.posted.at(0).value("Amount"), Variant(Money::fromUnits(25)));
    till.expectUsable();
}

TEST_F(BusyForm, ThatIsClosedStillRecordsThePaymentAndThenLetsTheComponentsGo) {
    till.fillCharge();
    till.desktop.charge.duringOperation = [this](const ChargeOperation&) {
        till.desktop.robot->closeBox(till.form());
        EXPECT_EQ(till.desktop.charge.freed, 0);
    };

    till.submit();

    EXPECT_FALSE(till.isOpen());
    EXPECT_EQ(till.boxes().at(0).title, "Approved");
    EXPECT_EQ(till.desktop.hostData.posted.at(0).value("Amount"), Variant(Money::fromUnits(25)));
    EXPECT_EQ(till.desktop.charge.freed, 1);
    EXPECT_EQ(till.desktop.record.texts("charge.").back(), "charge.Free()");
}

TEST_F(BusyForm, ThatIsClosedOverAQuestionChargesNothing) {
    till.fillCharge();
    till.set(option::cardCodeRequired, false);
    till.enter("txtCardCode", "");
    till.desktop.boxes.answer(MessageAnswer::no);
    till.desktop.boxes.whileOpen = [this](const Message&) {
        till.desktop.robot->closeBox(till.form());
    };

    till.submit();

    EXPECT_EQ(till.operations(), std::vector<std::string>());
    EXPECT_EQ(till.boxes().size(), 1U);
    EXPECT_EQ(till.desktop.charge.freed, 1);
}

} // namespace
} // namespace tollvane::test
