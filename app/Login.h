#pragma once

#include "gateway/Environment.h"
#include "platform/Automation.h"

namespace tollvane {

/// Has the operator logged in through the host data server and confirms the privilege to accept
/// card payments. Returns true; otherwise raises what stood in the way, with ":Authorized" in the
/// source. The environment keeps the host data server afterwards.
bool Authorized(Automation& automation, Environment& environment);

} // namespace tollvane
