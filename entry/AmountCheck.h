#pragma once

#include "entry/ChargeInfoControls.h"
#include "gateway/ChargeComponent.h"
#include "platform/Desktop.h"

namespace tollvane {

/// The check of the amount that every kind of transaction shares: not zero. Hands its absolute
/// value to the charge component. Raises 13 or 6 for a text that is no amount.
bool checkAmount(const Desktop& desktop, ChargeInfoControls& controls, ChargeComponent& charge);

} // namespace tollvane
