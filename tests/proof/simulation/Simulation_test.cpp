// A seeded simulation of clerk, processor, disk, printer and clock around the program: whatever
// happens, the processor's ledger, the transaction log and the payment store agree to the cent, or
// the operator was told which payment is missing; an entry is charged once at most; nothing that
// was approved, or may have been, is shown as a decline.

#include "tests/proof/simulation/Simulation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

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

std::string reportPath(const std::string& folder, const std::string& part) {
    return folder + "/" + part + "-" + std::to_string(number("TOLLVANE_SHARE", 0)) + ".txt";
}

/// Expects a run without complaints and writes what it tried; answers whether it is long enough
/// that every kind of fault has to be met, and says so when it is not.
bool expectClean(const Report& report, const std::string& part, int enough) {
    for (const std::string& complaint : report.complaints) {
        ADD_FAILURE() << "seed " << seed() << ": " << complaint;
    }
    EXPECT_EQ(report.oftenerThanDrawn(), "");
    std::string note;
    if (report.transactions < enough) {
        note = "note: " + std::to_string(report.transactions) + " of " + std::to_string(enough) +
               ", too few to require that every kind of fault was met\n";
        std::cout << note;
    }
    if (const char* folder = std::getenv("TOLLVANE_PROOF")) {
        std::ofstream(reportPath(folder, part)) << report.summary() << note;
    }
    return note.empty();
}

TEST(Simulation, LedgerLogAndStoreAgreeWhateverFails) {
    const auto count = static_cast<int>(number("TOLLVANE_SIMULATED", kTransactions));

    const Report report = simulate(seed(), count);

    EXPECT_EQ(report.transactions, count);
    if (expectClean(report, "simulation", kTransactions)) {
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

/// This process's environment without what says how it is to test, and with these settings.
std::vector<std::string> environmentWith(std::vector<std::string> settings) {
    for (char** each = environ; *each != nullptr; ++each) {
        const std::string setting = *each;
        if (!setting.starts_with("TOLLVANE_") && !setting.starts_with("GTEST_")) {
            settings.push_back(setting);
        }
    }
    return settings;
}

/// Runs this program once more, with other settings; answers how it ended.
int runAgain(std::vector<std::string> arguments, std::vector<std::string> settings) {
    const std::string program = std::filesystem::read_symlink("/proc/self/exe").string();
    arguments.insert(arguments.begin(), program);
    settings = environmentWith(std::move(settings));
    const auto pointers = [](std::vector<std::string>& texts) {
        std::vector<char*> list;
        std::ranges::transform(texts, std::back_inserter(list),
                               [](std::string& each) { return each.data(); });
        list.push_back(nullptr);
        return list;
    };
    pid_t child = 0;
    int status = -1;
    if (posix_spawn(&child, program.c_str(), nullptr, nullptr, pointers(arguments).data(),
                    pointers(settings).data()) == 0) {
        waitpid(child, &status, 0);
    }
    return status;
}

/// What another process tells of its run of so many transactions.
std::string playElsewhere(int transactions) {
    const std::string folder =
        testing::TempDir() + "tollvane-simulation-" + std::to_string(getpid());
    std::filesystem::create_directory(folder);
    EXPECT_EQ(
        runAgain(
            {"--gtest_filter=Simulation.LedgerLogAndStoreAgreeWhateverFails", "--gtest_brief=1"},
            {"TOLLVANE_SIMULATED=" + std::to_string(transactions), "TOLLVANE_PROOF=" + folder,
             "TOLLVANE_SEED=" + std::to_string(number("TOLLVANE_SEED", kSeed)),
             "TOLLVANE_SHARE=" + std::to_string(number("TOLLVANE_SHARE", 0))}),
        0);
    std::ifstream file(reportPath(folder, "simulation"));
    const std::string told{std::istreambuf_iterator<char>(file), {}};
    std::filesystem::remove_all(folder);
    return told;
}

TEST(Simulation, OfOneSeedIsTheSameRunInAnotherProcess) {
    constexpr int kSome = 98; // seven days
    const std::string elsewhere = playElsewhere(kSome);

    EXPECT_EQ(elsewhere.substr(0, elsewhere.find("note: ")), simulate(seed(), kSome).summary());
}

TEST(DoubleSubmission, ChargesAnEntryOnceAtMost) {
    const auto count = static_cast<int>(number("TOLLVANE_DOUBLE_TRIES", kDoubleTries));

    const Report report = submitTwice(seed(), count);

    EXPECT_EQ(report.transactions, count);
    EXPECT_GT(report.submissions, count);
    if (expectClean(report, "double", kDoubleTries)) {
        EXPECT_EQ(report.neverInCall({Fault::doubleClick, Fault::heldKeys, Fault::accessKeyRepeated,
                                      Fault::swipeWhileBusy, Fault::secondInstance}),
                  "");
        EXPECT_GT(report.endedInCallTriedAgain, 0);
        EXPECT_GT(report.endedInCallLeft, 0);
    }
}

} // namespace
} // namespace tollvane::simulation
