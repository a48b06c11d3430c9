#pragma once

#include "platform/Form.h"
#include "platform/Surroundings.h"

namespace tollvane {

/// Ctrl+Alt+Shift+C.
bool isColourCommand(int keyCode, int shift);

/// Gives every label, frame and check box random colours. Never raises.
void paintRandomColours(Form& form, RandomNumbers& random) noexcept;

/// Gives every label, frame and check box the system's colours back. Never raises.
void restoreColours(Form& form) noexcept;

} // namespace tollvane
