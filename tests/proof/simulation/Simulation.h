#pragma once

#include "tests/proof/simulation/Report.h"

#include <cstdint>

namespace tollvane::simulation {

/// Plays so many transactions, a shop after the other. The same seed gives the same run.
Report simulate(std::uint64_t seed, int transactions);

/// Plays so many entries that are submitted more often than once, in every way that an impatient
/// operator, a second program or a restart has.
Report submitTwice(std::uint64_t seed, int entries);

} // namespace tollvane::simulation
