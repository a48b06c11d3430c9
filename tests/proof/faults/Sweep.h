#pragma once

#include "tests/proof/faults/Expectation.h"
#include "tests/proof/faults/Scenario.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace tollvane::test {

/// One scenario, played with each of its calls failing in each way.
class Sweep {
public:
    /// A call that fails, and how.
    struct Run {
        std::size_t call = 0;
        Mode mode;
    };

    /// Plays the scenario once without a failure to learn its calls and boxes.
    Sweep(const Scenario& scenario, unsigned long seed);

    const std::vector<Call>& calls() const { return calls_; }
    /// The runs of a stride: each kind of call at least once, of the rest one of so many.
    std::vector<Run> runs(unsigned long stride) const;
    /// Plays one of them; what went wrong, empty when nothing did.
    std::string play(const Run& run);
    /// Runs whose next charge needed the program started anew, by the reason.
    const std::map<std::string, int>& newStarts() const { return newStarts_; }

private:
    const Scenario& scenario_;
    unsigned long seed_;
    std::vector<Call> calls_;
    std::vector<Message> boxes_;
    std::map<std::string, int> newStarts_;
};

} // namespace tollvane::test
