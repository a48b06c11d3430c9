#pragma once

#include <string>

#include <windows.h>

namespace tollvane::probe {

/// Takes everybody's right to write a key below HKEY_LOCAL_MACHINE and the keys below it. Returns 0
/// or the system's error number.
LSTATUS lockKey(const std::string& path);

} // namespace tollvane::probe
