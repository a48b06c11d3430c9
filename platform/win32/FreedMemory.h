#pragma once

namespace tollvane::win32 {

/// Overwrites what lies in freed blocks of the process's heap. The system's controls and text
/// conversions work on copies there that they give back unwiped.
void wipeFreedMemory() noexcept;

} // namespace tollvane::win32
