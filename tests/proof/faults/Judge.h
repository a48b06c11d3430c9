#pragma once

#include "tests/proof/faults/Expectation.h"
#include "tests/proof/faults/Scenario.h"

#include <string>
#include <vector>

namespace tollvane::test {

/// Looks at a till after a failure and notes what is wrong with it.
class Judge {
public:
    Judge(Rig& rig, const Scenario& scenario) : rig_(rig), scenario_(scenario) {}

    /// The boxes of the run against those of a run without failures.
    void boxes(const std::vector<Message>& shown, const std::vector<Message>& usual,
               const Call& call, const Mode& mode);
    /// At most one charge of the right amount, none shown as a decline, none posted twice.
    void money(const std::vector<Message>& shown, const Mode& mode);
    /// Nothing left a handler; the form's pointer is the usual one, its controls are enabled, the
    /// focus is where it can be. A control that refused to be switched stays as it is until the
    /// next submission.
    void form(bool controlsObey);
    /// What was borrowed has been given back: components' objects, registry keys, print jobs.
    void belongings();
    /// The next charge; after a new start where that is asked for, there is no form, a process has
    /// ended or the charge cannot be chosen.
    void nextCharge(bool afterANewStart);

    const std::string& problems() const { return problems_; }

private:
    void wrong(const std::string& what) { problems_ += "\n  - " + what; }
    void wrongUnless(bool right, const std::string& what) {
        if (!right) {
            wrong(what);
        }
    }
    bool typesAreEnabled();
    void startAnew();

    Rig& rig_;
    const Scenario& scenario_;
    std::string problems_;
};

} // namespace tollvane::test
