#pragma once

#include "tests/proof/simulation/Fault.h"

#include <array>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace tollvane::simulation {

/// Everything that happened, folded into one number, and the latest of it in words.
class Trace {
public:
    void line(const std::string& text);
    /// Of the digest only.
    void fold(const std::string& text);
    std::uint64_t digest() const { return digest_; }
    std::string latest() const;

private:
    std::uint64_t digest_ = 14695981039346656037U;
    std::deque<std::string> latest_;
};

/// What a run tried and found.
struct Report {
    int transactions = 0;
    int submissions = 0;
    int approved = 0;
    int declined = 0;
    int errors = 0;
    int restarts = 0;
    int recordedAtOnce = 0;
    int missingAndTold = 0;   ///< the status bar named the payment
    int missingAndLogged = 0; ///< the program ended in between; the log names the payment
    int recordedLater = 0;    ///< found missing at the next sign-in and recorded
    int recordsCompared = 0;  ///< with the ledger, after the last sign-in
    std::array<int, kFaultKinds> drawn{};
    std::array<int, kFaultKinds> struck{};
    std::array<int, kFaultKinds> inCall{}; ///< struck while the processor worked
    int endedInCallTriedAgain = 0; ///< the program ended in mid-call, and the entry came again
    int endedInCallLeft = 0;       ///< the same, and the next start was all that followed
    int complained = 0;
    std::vector<std::string> complaints; ///< the first of them
    Trace trace;

    void drew(Fault fault) { ++drawn.at(static_cast<std::size_t>(fault)); }
    /// What came up around one transaction, and what of it while the processor worked.
    void hit(const Faults& faults, const Faults& whileBusy);
    void complain(const std::string& what);
    /// Names of the kinds that never came up.
    std::string neverDrawn() const;
    std::string neverStruck() const;
    /// Of these kinds those that never struck while the processor worked.
    std::string neverInCall(const Faults& kinds) const;
    /// Names of the kinds that struck more often than they were drawn.
    std::string oftenerThanDrawn() const;
    /// The figures, a line each.
    std::string summary() const;
};

} // namespace tollvane::simulation
