#pragma once

#include "platform/Form.h"

namespace tollvane {

/// The look of the transaction form: every control with its caption, tool tip and place.
const FormDescription& chargeInfoLayout();

/// Tag of a control that must not keep the focus.
inline constexpr std::string_view kNoFocus = "No Focus";

/// Key of the status bar's panel.
inline constexpr std::string_view kStatusPanel = "STATUS";

} // namespace tollvane
