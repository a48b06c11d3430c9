#include "tests/desktop/FakeProgramFacts.h"

#include "platform/Error.h"
#include "tests/desktop/FaultPlan.h"

namespace tollvane::test {

namespace {
constexpr long kResourceNotFound = 326;
} // namespace

FakeProgramFacts::FakeProgramFacts(FaultPlan& faults)
    : strings{
#define TOLLVANE_STRING(id, text) {id, text},
#include "app/resources/StateStrings.inc"
#undef TOLLVANE_STRING
      },
      faults_(faults) {
}

bool FakeProgramFacts::anotherInstanceRuns() {
    faults_.hit(Port::program, "anotherInstanceRuns");
    ++askedForInstance;
    return otherInstance;
}

std::string FakeProgramFacts::resourceString(unsigned id) {
    faults_.hit(Port::program, "resourceString");
    const auto found = strings.find(id);
    if (found == strings.end()) {
        throw Error(kResourceNotFound, exeName(),
                    "Resource with identifier '" + std::to_string(id) + "' not found");
    }
    return found->second;
}

} // namespace tollvane::test
