#pragma once

#include "platform/ProgramFacts.h"

#include <map>
#include <string>

namespace tollvane::test {

class FaultPlan;

/// The executable's facts, with the program's own string table.
class FakeProgramFacts : public ProgramFacts {
public:
    explicit FakeProgramFacts(FaultPlan& faults);

    std::string exeName() override { return "Tollvane"; }
    std::string productName() override { return "Tollvane"; }
    std::string commandLine() override { return arguments; }
    bool anotherInstanceRuns() override;
    std::string resourceString(unsigned id) override;

    std::string arguments;
    bool otherInstance = false;
    int askedForInstance = 0;
    /// The string table; a test may take entries away.
    std::map<unsigned, std::string> strings;

private:
    FaultPlan& faults_;
};

} // namespace tollvane::test
