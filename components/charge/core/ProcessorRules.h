// What the simulated processor decides, given its ledger.
#pragma once

#include "components/charge/core/Ledger.h"
#include "components/charge/core/Processor.h"
#include "components/charge/core/Triggers.h"

namespace tollvane::charge {

// Without approval code and transaction id. Changes nothing.
ProcessorAnswer decide(const ProcessorRequest& request, const Trigger& trigger,
                       const Ledger& ledger);

} // namespace tollvane::charge
