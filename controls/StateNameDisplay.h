#pragma once

#include "platform/Controls.h"
#include "platform/Error.h"
#include "platform/MessageBox.h"
#include "platform/ProgramFacts.h"

namespace tollvane {

/// Shows the full name of a chosen state for a moment, in a label that floats above the box, and as
/// the box's tool tip.
class StateNameDisplay {
public:
    /// All arguments outlive the object. The timer's interval is how long the name is shown.
    StateNameDisplay(ProgramFacts& program, MessageBoxes& messageBoxes, ComboBox& box, Label& label,
                     Timer& timer);

    /// The box's click. Shows its own failure.
    void show() noexcept;
    /// The timer's event.
    void hide();

private:
    void showName();
    void reportFailure(const Error& error) noexcept;

    ProgramFacts& program_;
    MessageBoxes& messageBoxes_;
    ComboBox& box_;
    Label& label_;
    Timer& timer_;
};

} // namespace tollvane
