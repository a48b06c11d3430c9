// What keeps a server alive: its objects and the locks that clients take on its class factories.
#pragma once

#include <windows.h>

namespace tollvane::com {

// The binary that this code is linked into, library or program.
HMODULE thisModule() noexcept;

void lockModule() noexcept;
void unlockModule() noexcept;
// Objects and locks alive.
LONG moduleLocks() noexcept;

// Called each time the last lock is given back (on the thread that gave it back). Null for none.
void onModuleIdle(void (*callback)()) noexcept;

// Counts the object that holds it.
class ModuleLock {
public:
    ModuleLock() noexcept { lockModule(); }
    ModuleLock(const ModuleLock&) = delete;
    ModuleLock& operator=(const ModuleLock&) = delete;
    ~ModuleLock() { unlockModule(); }
};

} // namespace tollvane::com
