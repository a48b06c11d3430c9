#pragma once

#include "platform/Registry.h"
#include "tests/desktop/FaultPlan.h"

#include <memory>

namespace tollvane::test {

/// The registry of the desktop that the test program was linked with: the system's own or the one
/// in memory.
std::unique_ptr<Registry> makeRegistry(FaultPlan& faults);

} // namespace tollvane::test
