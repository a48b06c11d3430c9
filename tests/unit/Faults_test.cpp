// Every call of the program fails in turn. Afterwards nothing has escaped a handler, the form is
// usable, and the next clean charge succeeds.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

constexpr long kNumber = 5;

struct SweepRow {
    const char* what;
    Port port;
    int transaction; ///< type, or 3 for a charge by telephone
};

void PrintTo(const SweepRow& row, std::ostream* out) {
    *out << row.what;
}

class Faults : public ::testing::TestWithParam<SweepRow> {
protected:
    static void prepare(Till& till) {
        switch (GetParam().transaction) {
        case 0: till.fillCharge(); break;
        case 1: till.fillRefund(); break;
        case 2: till.fillVoid(); break;
        default:
            till.fillCharge();
            till.press("chkVoiceAuth");
            till.enter("txtAuthNum", "V12345");
            break;
        }
    }
    /// A new entry from the beginning, charged, approved and posted.
    static void expectNextChargeSucceeds(Till& till) {
        till.desktop.faults.clear();
        till.boxes();
        till.choose(1);
        till.choose(0);
        if (till.check("chkVoiceAuth").checked()) {
            till.press("chkVoiceAuth");
        }
        till.fillCharge();
        const std::size_t operations = till.operations().size();
        const std::size_t posted = till.desktop.hostData.posted.size();
        till.submit();
        EXPECT_EQ(till.operations().size(), operations + 1);
        EXPECT_EQ(till.desktop.hostData.posted.size(), posted + 1);
        EXPECT_EQ(till.desktop.boxes.last().title, "Approved");
        EXPECT_TRUE(till.program().TransactionApproved());
        till.expectUsable();
        till.boxes();
    }
};

TEST_P(Faults, OfASubmissionLeaveAUsableForm) {
    const int failed = sweepFaults([](int nth) {
        Till till;
        till.open();
        prepare(till);
        till.desktop.faults.failAt(GetParam().port, nth, kNumber);

        till.submit();

        const bool reached = till.desktop.faults.reached();
        SCOPED_TRACE("failed call " + std::to_string(nth) + ": " +
                     till.desktop.faults.failedCall());
        EXPECT_LE(till.operations().size(), 1U) << "never twice";
        EXPECT_EQ(till.form().mousePointer(), MousePointer::standard);
        till.desktop.faults.clear();
        till.expectUsable();
        expectNextChargeSucceeds(till);
        till.desktop.expectNothingLeftOver();
        return reached;
    });
    EXPECT_GE(failed, 1) << "the sweep reached nothing";
}

INSTANTIATE_TEST_SUITE_P(At, Faults,
                         ::testing::Values(SweepRow{"ComponentsOfACharge", Port::automation, 0},
                                           SweepRow{"ComponentsOfATelephoneCharge",
                                                    Port::automation, 3},
                                           SweepRow{"ComponentsOfARefund", Port::automation, 1},
                                           SweepRow{"ComponentsOfAVoid", Port::automation, 2},
                                           SweepRow{"SettingsOfACharge", Port::registry, 0},
                                           SweepRow{"LocaleOfACharge", Port::locale, 0},
                                           SweepRow{"BoxesOfACharge", Port::messageBoxes, 0},
                                           SweepRow{"BoxesOfARefund", Port::messageBoxes, 1}),
                         [](const auto& row) { return std::string(row.param.what); });

class StartFaults : public ::testing::TestWithParam<SweepRow> {};

TEST_P(StartFaults, EndTheStartOrLeaveAUsableForm) {
    const int failed = sweepFaults([](int nth) {
        Till till;
        till.desktop.program.arguments = "/till 3";
        till.desktop.faults.failAt(GetParam().port, nth, kNumber);

        EXPECT_NO_THROW(till.start());

        const bool reached = till.desktop.faults.reached();
        SCOPED_TRACE("failed call " + std::to_string(nth) + ": " +
                     till.desktop.faults.failedCall());
        till.desktop.faults.clear();
        if (till.isOpen()) {
            till.expectUsable();
            till.press("cmdCancel");
            EXPECT_FALSE(till.isOpen());
            EXPECT_EQ(till.desktop.charge.freed, 1);
        } else {
            EXPECT_EQ(till.boxes().size(), 1U) << "a start that fails says so once";
        }
        till.desktop.expectNothingLeftOver();
        return reached;
    });
    EXPECT_GE(failed, 1) << "the sweep reached nothing";
}

INSTANTIATE_TEST_SUITE_P(At, StartFaults,
                         ::testing::Values(SweepRow{"Components", Port::automation, 0},
                                           SweepRow{"Settings", Port::registry, 0},
                                           SweepRow{"Files", Port::files, 0},
                                           SweepRow{"Locale", Port::locale, 0},
                                           SweepRow{"Program", Port::program, 0}),
                         [](const auto& row) { return std::string(row.param.what); });

class ClosingFaults : public ::testing::TestWithParam<SweepRow> {};

TEST_P(ClosingFaults, NeverKeepTheFormOpen) {
    sweepFaults([](int nth) {
        Till till;
        till.open();
        till.desktop.faults.failAt(GetParam().port, nth, kNumber);

        till.press("cmdCancel");

        const bool reached = till.desktop.faults.reached();
        till.desktop.faults.clear();
        EXPECT_FALSE(till.isOpen());
        till.boxes();
        till.desktop.expectNothingLeftOver();
        return reached;
    });
}

INSTANTIATE_TEST_SUITE_P(At, ClosingFaults,
                         ::testing::Values(SweepRow{"Components", Port::automation, 0},
                                           SweepRow{"Settings", Port::registry, 0}),
                         [](const auto& row) { return std::string(row.param.what); });

/// An error that cannot even be shown.
TEST(DoubleFault, OfASubmissionLeavesAUsableForm) {
    Till till;
    till.open();
    till.fillCharge();
    till.desktop.charge.failOperation(Error(70, "charge", "Permission denied"));
    till.desktop.faults.failAt(Port::messageBoxes, 1, kNumber);

    till.submit();

    till.expectUsable();
    EXPECT_EQ(till.boxes(), std::vector<Message>());
    till.desktop.expectNothingLeftOver();
}

} // namespace
} // namespace tollvane::test
