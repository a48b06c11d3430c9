#pragma once

#include "tests/scenarios/Till.h"

namespace tollvane::test {

/// An operator with a card reader at the open form.
class FieldsTest : public OpenTillTest {
protected:
    /// Longer than any pause inside a reader's burst.
    static constexpr int kAPause = 400;

    void goTo(const char* control) {
        till.form().find(control).setFocus();
        ASSERT_EQ(till.focus(), control);
    }
    void type(std::string_view keys) { till.desktop.robot->typeText(keys); }
    void pause() { till.desktop.robot->letTimePass(kAPause); }
    int beeps() const { return till.desktop.beeper.beeps; }
};

} // namespace tollvane::test
