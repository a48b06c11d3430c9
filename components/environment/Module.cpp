// The entry points of habitat.dll.
#include "Environment.h"
#include "components/common/DispatchObject.h"
#include "components/common/DllServer.h"
#include "components/environment/EnvironmentObject.h"

namespace {

using namespace tollvane;

const com::ServerClass classes[] = {
    {&CLSID_clsHabitatI, L"prjHabitat.clsHabitatI", L"Environment component",
     &com::createObject<environment::EnvironmentObject>},
};
const com::ServerClasses server{classes, &LIBID_EnvironmentLibrary, 1, 0};

} // namespace

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** out) {
    return com::dllGetClassObject(server, classId, iid, out);
}

STDAPI DllCanUnloadNow() {
    return com::dllCanUnloadNow();
}

STDAPI DllRegisterServer() {
    return com::dllRegisterServer(server);
}

STDAPI DllUnregisterServer() {
    return com::dllUnregisterServer(server);
}
