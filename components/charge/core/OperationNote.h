// What the journal and the log say about one operation. Never holds card data but the last four
// digits.
#pragma once

#include "components/charge/core/Clock.h"
#include "components/charge/core/Processor.h"
#include "platform/Money.h"

#include <string>

namespace tollvane::charge {

struct OperationNote {
    std::string key;
    std::string date; // "2026-11-21"
    std::string time; // "09:05:03"
    std::string operatorName;
    Operation operation = Operation::Charge;
    bool testMode = true;
    Money amount;
    std::string lastFour;  // of the card, empty when there is none
    std::string reference; // transaction that a refund or void refers to
};

} // namespace tollvane::charge
