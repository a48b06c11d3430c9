#pragma once

#include "entry/ChargeInfoControls.h"
#include "platform/Desktop.h"

#include <string>

namespace tollvane {

/// Zero in the locale's currency format.
std::string zeroCurrency(const Desktop& desktop);

/// Empties the entry fields for a new transaction and offers the default invoice number when the
/// settings ask for it. Card data is wiped.
void clearEntry(const Desktop& desktop, ChargeInfoControls& controls);

/// Empties the fields of the card, the holder and the order; the expiry, invoice and purchase order
/// numbers, check boxes and the type stay.
void resetFields(const Desktop& desktop, ChargeInfoControls& controls);

} // namespace tollvane
