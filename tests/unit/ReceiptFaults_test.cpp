// Every step of printing a receipt fails in turn. The operator hears of it once, or not at all when
// the error is one that the printer has told; pointer, settings and printer are given back, and in
// the end a receipt is printed.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

struct FaultRow {
    const char* what;
    Port port;
    long number;
    std::size_t boxes; ///< for every failure that is raised
};

void PrintTo(const FaultRow& row, std::ostream* out) {
    *out << row.what;
}

class ReceiptFaults : public ::testing::TestWithParam<FaultRow> {};

TEST_P(ReceiptFaults, EndThePrintingAndNothingElse) {
    const FaultRow& row = GetParam();
    Till till;
    till.open();
    till.approveCharge();
    const int failed = sweepFaults([&](int nth) {
        FakePrinters& printers = till.desktop.printers;
        printers.documents.clear();
        till.desktop.faults.failAt(row.port, nth, row.number);

        till.program().Print_Receipt();

        const bool reached = till.desktop.faults.reached();
        SCOPED_TRACE("failed call " + std::to_string(nth) + ": " +
                     till.desktop.faults.failedCall());
        till.desktop.faults.clear();
        const bool printed = !printers.documents.empty() && printers.last().ended;
        EXPECT_EQ(till.boxes().size(), printed ? 0 : row.boxes);
        EXPECT_TRUE(!reached || !printed || row.port == Port::registry || row.port == Port::locale)
            << "printed in spite of the failure";
        EXPECT_EQ(till.form().mousePointer(), MousePointer::standard);
        till.desktop.expectNothingLeftOver();
        return reached;
    });
    EXPECT_GE(failed, 1) << "the sweep reached nothing";
    // The last run failed nothing.
    EXPECT_TRUE(till.desktop.printers.last().ended);
}

INSTANTIATE_TEST_SUITE_P(
    At, ReceiptFaults,
    ::testing::Values(FaultRow{"ThePrinter", Port::printer, 5, 1},
                      FaultRow{"ThePrinterThatHasToldIt", Port::printer, 482, 0},
                      FaultRow{"ThePrinterByCancelling", Port::printer, 32'755, 0},
                      FaultRow{"TheChargeComponent", Port::automation, 462, 1},
                      FaultRow{"TheSettings", Port::registry, 5, 1},
                      FaultRow{"TheLocale", Port::locale, 5, 1}),
    [](const auto& row) { return std::string(row.param.what); });

/// A failure that cannot even be shown.
TEST(ReceiptDoubleFault, LeavesAUsableForm) {
    Till till;
    till.open();
    till.approveCharge();
    till.desktop.printers.missing = Error(484, "Printer", "There is no default printer");
    till.desktop.faults.failAt(Port::messageBoxes, 1, 5);

    till.program().Print_Receipt();

    till.expectUsable();
    till.desktop.expectNothingLeftOver();
}

} // namespace
} // namespace tollvane::test
