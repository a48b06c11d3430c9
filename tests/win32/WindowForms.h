#pragma once

#include "platform/win32/Ui.h"
#include "platform/win32/Win32Forms.h"
#include "tests/desktop/TestForms.h"

namespace tollvane::test {

/// The window forms of a test, with what they share.
class WindowForms : public Forms {
public:
    explicit WindowForms(const TestFormsSetup& setup);

    std::unique_ptr<Form> create(const FormDescription& description) override;
    win32::Ui& ui() { return ui_; }

private:
    win32::Ui ui_;
    win32::Win32Forms forms_{ui_};
};

} // namespace tollvane::test
