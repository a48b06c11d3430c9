#include "components/common/DllServer.h"

#include "components/common/ClassFactory.h"
#include "components/common/ComFailure.h"
#include "components/common/ComPtr.h"
#include "components/common/Registration.h"

namespace tollvane::com {

HRESULT dllGetClassObject(const ServerClasses& server, REFCLSID classId, REFIID iid,
                          void** out) noexcept {
    if (!out)
        return E_POINTER;
    *out = nullptr;
    for (const ServerClass& each : server.classes) {
        if (IsEqualCLSID(*each.classId, classId))
            return guarded(IID_IClassFactory, "ClassFactory", [&] {
                const ComPtr<ClassFactory> factory = makeObject<ClassFactory>(each);
                check(factory->QueryInterface(iid, out));
            });
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

HRESULT dllCanUnloadNow() noexcept {
    return moduleLocks() == 0 ? S_OK : S_FALSE;
}

HRESULT dllRegisterServer(const ServerClasses& server) noexcept {
    return guarded(IID_IUnknown, "Registration",
                   [&] { registerServer(server, ServerKind::Library); });
}

HRESULT dllUnregisterServer(const ServerClasses& server) noexcept {
    return guarded(IID_IUnknown, "Registration", [&] { unregisterServer(server); });
}

} // namespace tollvane::com
