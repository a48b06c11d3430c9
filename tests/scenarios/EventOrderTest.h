#pragma once

#include "tests/scenarios/ScenarioTest.h"
#include "tests/scenarios/TracedForm.h"

namespace tollvane::test {

/// Pins the contract of platform/README.md on the desktop that the test program was linked with.
class EventOrder : public ScenarioTest {
protected:
    /// Puts the focus on a control without leaving anything in the trace.
    void focusOn(const std::string& name, int index = -1) {
        traced.form().find(name, index).setFocus();
        traced.take();
    }
    void watch(unsigned groups) { traced.watch(groups); }
    std::string take() { return traced.take(); }
    std::string active() { return traced.active(); }

    TracedForm traced{*desk.forms};
};

} // namespace tollvane::test
