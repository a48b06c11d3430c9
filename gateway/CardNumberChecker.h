#pragma once

#include "platform/Automation.h"
#include "platform/SecretText.h"

namespace tollvane {

/// The class of the charge component's library that judges card numbers. Created for one question
/// and dropped again.
class CardNumberChecker {
public:
    /// Raises 429 when the library is not registered.
    explicit CardNumberChecker(Automation& automation);

    /// True when the number is acceptable.
    bool CheckCardNumber(const SecretText& pan);

private:
    ObjectRef checker_;
};

} // namespace tollvane
