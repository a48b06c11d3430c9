#pragma once

#include "platform/Form.h"

namespace tollvane {

/// The look of the options dialog.
const FormDescription& optionsLayout();

} // namespace tollvane
