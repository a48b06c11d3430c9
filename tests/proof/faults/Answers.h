#pragma once

#include "tests/proof/faults/Sabotage.h"

#include <optional>
#include <string>

namespace tollvane::test {

/// What the operator may be told of an operation: that it was approved, that it failed, or neither.
enum class Outcome { approval, failure, unknown };

/// The member that is called: the last word of the call.
std::string memberOf(const Call& call);

/// Whether it is one of the charge component's operations.
bool isOperation(const Call& call);

/// What a failure makes an operation answer, whatever the processor decided; nothing when the
/// failure is another one.
std::optional<Outcome> outcomeSaid(const Call& call, const Mode& mode);

/// The number of the error that a member's wrong answer ends in; 0 when it is understood.
long errorOfAnswer(const Call& call, const Mode& mode);

} // namespace tollvane::test
