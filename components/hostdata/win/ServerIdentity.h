// The server's entry for the system's component settings (dcomcnfg), for tills that share it.
#pragma once

namespace tollvane::hostdata {

// Under HKEY_LOCAL_MACHINE; raise ComponentError. Calls from other computers are encrypted, since
// they carry passwords.
void registerIdentity();
void unregisterIdentity();

} // namespace tollvane::hostdata
