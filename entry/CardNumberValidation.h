#pragma once

#include "platform/Desktop.h"
#include "platform/SecretText.h"

namespace tollvane {

/// Has a keyed card number judged. An empty number answers false without a word; a rejected one is
/// reported to the operator, and so is a checker that fails, which counts as a rejection.
bool ValidateCardNumber(const Desktop& desktop, const SecretText& pan);

} // namespace tollvane
