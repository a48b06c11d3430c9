// A seeded simulation of clerk, processor, disk, printer and clock around the program: whatever
// happens, the processor's ledger, the transaction log and the payment store agree to the cent, or
// the operator was told which payment is missing; an entry is charged once at most; nothing that
// was approved, or may have been, is shown as a decline.

#include "tests/proof/simulation/Simulation.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>

// Much is allocated here; where, is told by fewer frames. The sanitizer asks for that name.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() {
    return "malloc_context_size=3";
}
// NOLINTEND(bugprone-reserved-identifier)

namespace tollvane::simulation {
namespace {

constexpr int kTransactions = 2'000;
constexpr int kDoubleTries = 300;
constexpr std::uint64_t kSeed = 20'261'121;

std::uint64_t number(const char* name, std::uint64_t otherwise) {
    const char* text = std::getenv(name);
    return text == nullptr ? otherwise : std::strtoull(text, nullptr, 10);
}

/// The shares of a long run differ in their seeds.
std::uint64_t seed() {
    return number("TOLLVANE_SEED", kSeed) * 1'000 + number("TOLLVANE_SHARE", 0);
}

void expectClean(const Report& report, const std::string& part) {
    for (const std::string& complaint : report.complaints) {
        ADD_FAILURE() << "seed " << seed() << ": " << complaint;
    }
    if (const char* folder = std::getenv("TOLLVANE_PROOF")) {
        std::ofstream(std::string(folder) + "/" + part + "-" +
                      std::to_string(number("TOLLVANE_SHARE", 0)) + ".txt")
            << report.summary();
    }
}

/// Says so when a run is too short to require that every kind of fault was met.
bool tooFew(int count, int needed) {
    if (count < needed) {
        std::cout << count << " are too few to require that every kind of fault is met; " << needed
                  << " are enough.\n";
    }
    return count < needed;
}

TEST(Simulation, LedgerLogAndStoreAgreeWhateverFails) {
    const auto count = static_cast<int>(number("TOLLVANE_TRANSACTIONS", kTransactions));

    const Report report = simulate(seed(), count);

    expectClean(report, "simulation");
    EXPECT_EQ(report.transactions, count);
    EXPECT_EQ(report.oftenerThanDrawn(), "");
    if (!tooFew(count, kTransactions)) {
        EXPECT_EQ(report.neverDrawn(), "");
        EXPECT_EQ(report.neverStruck(), "");
        EXPECT_GT(report.missingAndTold, 0);
        EXPECT_GT(report.approved, count / 4);
    }
}

TEST(Simulation, OfOneSeedIsTheSameRunTwice) {
    constexpr int kFew = 28;
    const Report one = simulate(seed(), kFew);
    const Report other = simulate(seed(), kFew);
    const Report third = simulate(seed() + 1, kFew);

    EXPECT_EQ(one.trace.digest(), other.trace.digest());
    EXPECT_NE(one.trace.digest(), third.trace.digest());
}

TEST(DoubleSubmission, ChargesAnEntryOnceAtMost) {
    const auto count = static_cast<int>(number("TOLLVANE_DOUBLE_TRIES", kDoubleTries));

    const Report report = submitTwice(seed(), count);

    expectClean(report, "double");
    EXPECT_EQ(report.transactions, count);
    EXPECT_GT(report.submissions, count);
    EXPECT_EQ(report.oftenerThanDrawn(), "");
    if (!tooFew(count, kDoubleTries)) {
        EXPECT_EQ(report.neverInCall({Fault::doubleClick, Fault::heldKeys, Fault::accessKeyRepeated,
                                      Fault::swipeWhileBusy, Fault::secondInstance}),
                  "");
        EXPECT_GT(report.endedInCallTriedAgain, 0);
        EXPECT_GT(report.endedInCallLeft, 0);
    }
}

} // namespace
} // namespace tollvane::simulation
