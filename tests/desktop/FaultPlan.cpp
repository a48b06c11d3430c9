#include "tests/desktop/FaultPlan.h"

#include "platform/Error.h"

#include <gtest/gtest.h>

namespace tollvane::test {

namespace {
constexpr int kMostRuns = 5000;
} // namespace

void FaultPlan::failAt(Port port, int nth, long number) {
    port_ = port;
    failingCall_ = counts_[index(port)] + nth;
    number_ = number;
    reached_ = false;
    failedCall_.clear();
}

bool FaultPlan::strikes(Port port, std::string_view call) {
    const int count = ++counts_[index(port)];
    if (port != port_ || count != failingCall_) {
        return false;
    }
    reached_ = true;
    failedCall_ = call;
    return true;
}

void FaultPlan::hit(Port port, std::string_view call) {
    if (strikes(port, call)) {
        throw Error(number_, std::string(call), "Planned failure");
    }
}

int sweepFaults(const std::function<bool(int nth)>& scenario) {
    int nth = 1;
    while (scenario(nth)) {
        if (nth == kMostRuns) {
            ADD_FAILURE() << "the scenario still makes calls after " << kMostRuns << " runs";
            break;
        }
        ++nth;
    }
    return nth - 1;
}

} // namespace tollvane::test
