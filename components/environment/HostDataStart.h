#pragma once

#include <functional>

namespace tollvane::environment {

// Has the host data server of this computer running before the system is asked for an object of it.
// Where it cannot be started like this, or may not because it runs under an account of its own, the
// system starts it as ever.
// `meanwhile` is run once while a server that has to be started comes up.
void startHostDataServer(const std::function<void()>& meanwhile) noexcept;

} // namespace tollvane::environment
