#pragma once

#include <windows.h>

namespace tollvane::probe {

/// Makes a thread of another process run where no code is. Answers 0 or the system's error.
DWORD crash(DWORD processId);

} // namespace tollvane::probe
