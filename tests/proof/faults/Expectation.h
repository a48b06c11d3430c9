#pragma once

#include "platform/MessageBox.h"
#include "tests/proof/faults/Sabotage.h"
#include "tests/proof/faults/Scenario.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tollvane::test {

/// The one box that tells of a failed call.
struct Told {
    std::string title;
    std::string text;
    bool titleEnds = false; ///< the box's title ends in `title`
    bool textStarts = false;

    bool isTold(const Message& box) const;
};

/// What the operator is to see of a failed call.
struct Expectation {
    std::optional<Told> told{};      ///< nothing: silence
    std::set<std::string> follows{}; ///< titles of boxes that may come of it
    bool mayReplaceOthers = false;   ///< ... and of those that may stay away
};

Expectation expectationOf(const Call& call, const Mode& mode);

/// Whether a box tells of a process that ended, in whatever handler noticed it.
bool tellsOfADeadProcess(const Message& box);

} // namespace tollvane::test
