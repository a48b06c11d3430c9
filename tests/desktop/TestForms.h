#pragma once

#include "platform/Form.h"
#include "tests/desktop/Robot.h"

#include <memory>
#include <string>
#include <vector>

namespace tollvane::test {

class FakeClock;
class FaultPlan;

/// Errors that left an event handler; there must never be one. Desktops note them and go on.
class EscapedErrors {
public:
    void note(const std::string& where, const Error& error);
    const std::vector<std::string>& noted() const { return noted_; }
    void forget() { noted_.clear(); }

private:
    std::vector<std::string> noted_;
};

/// What the forms of a test run need. The clock and the fault plan steer the in-memory forms only.
struct TestFormsSetup {
    EscapedErrors& escaped;
    FakeClock& clock;
    FaultPlan& faults;
};

/// The forms of the desktop that the test program was linked with, and a user who works with them.
/// The setup outlives the forms, the forms outlive the robot.
std::unique_ptr<Forms> makeForms(const TestFormsSetup& setup);
std::unique_ptr<Robot> makeRobot(Forms& forms, const TestFormsSetup& setup);

} // namespace tollvane::test
