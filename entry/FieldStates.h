#pragma once

#include "entry/ChargeInfoControls.h"

namespace tollvane {

/// Enables or disables a control. One that refuses is tried once more; one that refuses again stays
/// as it is.
void switchControl(Control& control, bool enabled) noexcept;

/// Makes a control usable or not: enabled, tab stop, lock, and the colours of text and combo boxes.
/// A property that the control lacks is skipped. Never raises.
void SetFieldState(Control& control, bool usable) noexcept;

/// Applies the field states and tool tips of a transaction type; contents stay as they are. An
/// unknown type changes nothing.
void layOutForType(ChargeInfoControls& controls, int transactionType);

} // namespace tollvane
