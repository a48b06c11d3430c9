#include "tests/desktop/TestRegistry.h"

#include "platform/win32/Win32Registry.h"

namespace tollvane::test {

std::unique_ptr<Registry> makeRegistry(FaultPlan& /*faults*/) {
    return std::make_unique<win32::Win32Registry>();
}

} // namespace tollvane::test
