// Values that make the simulated processor answer something else than an approval. The table for
// people is in the README of this folder. Amounts of everyday size trigger nothing.
#pragma once

#include "components/charge/core/Processor.h"
#include "components/charge/core/Reasons.h"

#include <optional>

namespace tollvane::charge {

// What the line to the processor does.
enum class LineTrouble {
    None,
    RequestLost,        // the processor never sees the transaction
    AnswerLost,         // it answers, but the answer is lost; asking again helps
    AnswerLostLineDead, // the answer is lost and asking does not help before the next operation
};

struct Trigger {
    std::optional<Reason> reason{}; // nothing: decided by the ordinary rules
    LineTrouble trouble = LineTrouble::None;
    bool settledAtOnce = false;
};

Trigger triggerFor(const ProcessorRequest& request);

} // namespace tollvane::charge
