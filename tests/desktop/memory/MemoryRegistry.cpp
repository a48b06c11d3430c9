#include "tests/desktop/FakeRegistry.h"
#include "tests/desktop/TestRegistry.h"

namespace tollvane::test {

std::unique_ptr<Registry> makeRegistry(FaultPlan& faults) {
    return std::make_unique<FakeRegistry>(faults);
}

} // namespace tollvane::test
