#pragma once

#include "gateway/ChargeComponent.h"
#include "platform/Desktop.h"

namespace tollvane {

/// Prints the receipt of the transaction that the charge component holds on the default printer:
/// the customer's copy on the upper half of a page, the store's on the lower. `transactionType` is
/// the form's. Raises what failed; then nothing is printed.
void printReceipt(const Desktop& desktop, const ChargeComponent& charge, int transactionType);

} // namespace tollvane
