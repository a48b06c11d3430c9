// Registration of a server's classes and type library under HKEY_LOCAL_MACHINE.
#pragma once

#include "components/common/ServerClasses.h"

#include <string>

namespace tollvane::com {

enum class ServerKind { Library, Program };

// Full path of the binary that this code is linked into. Throws ComponentError.
std::wstring modulePath();

// Writes ProgID, versioned ProgID, class, server path, threading model and type library. Raises
// ComponentError with the system's code when a key cannot be written.
void registerServer(const ServerClasses& server, ServerKind kind);
// Removes what registerServer wrote; what is not there is not an error.
void unregisterServer(const ServerClasses& server);

} // namespace tollvane::com
