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
    /// At most one charge of the right amount, none posted twice; what the processor approved, or
    /// the operation's own answer when that is the failure, is never shown as a decline, and
    /// nothing else as an approval.
    void money(const std::vector<Message>& shown, const Call& call, const Mode& mode);
    /// Nothing left a handler; the form's pointer is the usual one, its buttons are enabled, its
    /// fields as the type asks for, the focus is where it can be. No failure is excepted.
    void form();
    /// The program is on the screen unless it was ended, or refused to start and said why.
    void life(const std::vector<Message>& shown, const Call& call, const Mode& mode);
    /// What was borrowed has been given back: components' objects, registry keys, print jobs.
    void belongings();
    /// Why the next charge needs a new start; empty when it has to succeed in the form as it is.
    std::string reasonForANewStart(const Call& call);
    void nextCharge(bool afterANewStart);

    const std::string& problems() const { return problems_; }

private:
    void wrong(const std::string& what) { problems_ += "\n  - " + what; }
    void wrongUnless(bool right, const std::string& what) {
        if (!right) {
            wrong(what);
        }
    }
    void fields();
    void startAnew();

    Rig& rig_;
    const Scenario& scenario_;
    std::string problems_;
};

} // namespace tollvane::test
