#pragma once

#include "app/Components.h"
#include "platform/Desktop.h"

namespace tollvane {

/// Posts the payment of the transaction just completed into the shop's business data. Posts nothing
/// while the charge component is in test mode. `transactionType` is the form's. Returns true;
/// raises what failed, with ":WriteZendaRecord" in the source, and then nothing is stored.
bool WriteZendaRecord(const Desktop& desktop, Components& components, int transactionType);

} // namespace tollvane
