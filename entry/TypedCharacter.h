#pragma once

#include "platform/Controls.h"

namespace tollvane {

/// Enters a character that was held back as if it were typed now: past the box's own key-press
/// handler, its edit style and its maximum length, in place of the selection. The caret then stands
/// behind it.
void enterTyped(TextBox& box, char character);

} // namespace tollvane
