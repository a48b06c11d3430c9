// What the service takes from the machine besides files and settings.
#pragma once

#include "components/charge/core/Clock.h"

#include <string>

namespace tollvane::charge {

class SystemClock final : public Clock {
public:
    Moment now() override;
};

// Twenty random letters. Raises ComponentError when the system has no random numbers.
std::string newOperationKey();

// Name of this computer; "" when the system does not tell it.
std::string computerName();

} // namespace tollvane::charge
