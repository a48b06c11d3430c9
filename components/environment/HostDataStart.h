#pragma once

namespace tollvane::environment {

// Has the host data server of this computer running before the system is asked for an object of it.
// Where it cannot be started like this, or may not because it runs under an account of its own, the
// system starts it as ever.
void startHostDataServer() noexcept;

} // namespace tollvane::environment
