// The four entry points of an in-process server. A library defines them in one line each and lists
// ${TOLLVANE_DLL_SERVER_SOURCES} among its sources.
#pragma once

#include "components/common/ServerClasses.h"

namespace tollvane::com {

HRESULT dllGetClassObject(const ServerClasses& server, REFCLSID classId, REFIID iid,
                          void** out) noexcept;
HRESULT dllCanUnloadNow() noexcept;
// Under HKEY_LOCAL_MACHINE; need the rights for it.
HRESULT dllRegisterServer(const ServerClasses& server) noexcept;
HRESULT dllUnregisterServer(const ServerClasses& server) noexcept;

} // namespace tollvane::com
