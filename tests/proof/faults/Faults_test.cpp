// A day at the counter, played once for every call that the program makes and every way in which
// that call can fail. TOLLVANE_FAULT_STRIDE says which share of the runs is played (1: all of them,
// n: one of n, picked by TOLLVANE_SEED, and at least one for every kind of call).

#include "tests/proof/faults/Sweep.h"

#include <cstdlib>
#include <iostream>

namespace tollvane::test {
namespace {

unsigned long numberFrom(const char* variable, unsigned long fallback) {
    const char* text = std::getenv(variable);
    return text == nullptr ? fallback : std::strtoul(text, nullptr, 10);
}

class FaultSweep : public ::testing::TestWithParam<Scenario> {};

TEST_P(FaultSweep, LeavesAFormThatTakesTheNextCharge) {
    constexpr unsigned long kShortStride = 60;
    constexpr std::size_t kEnough = 10;
    Sweep sweep(GetParam(), numberFrom("TOLLVANE_SEED", 1));
    const auto runs = sweep.runs(numberFrom("TOLLVANE_FAULT_STRIDE", kShortStride));
    ASSERT_FALSE(runs.empty()) << "the scenario makes no calls";
    std::size_t bad = 0;
    for (const Sweep::Run& run : runs) {
        if (const std::string problems = sweep.play(run); !problems.empty() && ++bad <= kEnough) {
            ADD_FAILURE() << problems;
        }
    }
    EXPECT_LE(bad, kEnough) << bad << " of " << runs.size() << " runs went wrong";
    RecordProperty("calls", static_cast<int>(sweep.calls().size()));
    RecordProperty("possible", static_cast<int>(sweep.runs(1).size()));
    RecordProperty("runs", static_cast<int>(runs.size()));
    for (const auto& [reason, count] : sweep.newStarts()) {
        RecordProperty("new start: " + reason, count);
    }
}

INSTANTIATE_TEST_SUITE_P(Of, FaultSweep, ::testing::ValuesIn(scenarios()),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace tollvane::test
