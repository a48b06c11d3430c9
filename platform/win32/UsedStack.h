#pragma once

namespace tollvane::win32 {

/// Overwrites the stack below the caller, where functions that have returned left their variables.
/// The system converts texts there, and leaves them.
void wipeUsedStack() noexcept;

} // namespace tollvane::win32
