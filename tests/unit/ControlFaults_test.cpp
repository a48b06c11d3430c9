// Changes of controls fail in turn, which only the in-memory forms can play: nothing escapes a
// handler, and what is left can be worked with.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

constexpr long kNumber = 7;

TEST(ControlFaults, OfASubmissionNeverChargeTwiceNorLeaveTheHourglass) {
    const int failed = sweepFaults([](int nth) {
        Till till;
        till.open();
        till.fillCharge();
        till.desktop.faults.failAt(Port::controls, nth, kNumber);

        till.submit();

        const bool reached = till.desktop.faults.reached();
        SCOPED_TRACE("failed change " + std::to_string(nth) + ": " +
                     till.desktop.faults.failedCall());
        till.desktop.faults.clear();
        EXPECT_LE(till.operations().size(), 1U);
        EXPECT_EQ(till.form().mousePointer(), MousePointer::standard);
        EXPECT_TRUE(till.button("cmdCancel").enabled());
        const bool charged = till.operations().size() == 1;
        EXPECT_EQ(till.program().TransactionApproved(), charged);
        till.boxes();

        till.submit();
        EXPECT_LE(till.operations().size(), 1U) << "what was approved is not submitted again";
        till.desktop.expectNothingLeftOver();
        return reached;
    });
    EXPECT_GE(failed, 50);
}

TEST(ControlFaults, OfAClosingFormNeverKeepTheComponents) {
    sweepFaults([](int nth) {
        Till till;
        till.open();
        till.desktop.faults.failAt(Port::controls, nth, kNumber);

        till.press("cmdCancel");

        const bool reached = till.desktop.faults.reached();
        till.desktop.faults.clear();
        EXPECT_FALSE(till.isOpen());
        EXPECT_EQ(till.desktop.charge.freed, 1) << "failed change " << nth;
        till.desktop.expectNothingLeftOver();
        return reached;
    });
}

} // namespace
} // namespace tollvane::test
