// The library's entry points.
#include "components/about/AboutObject.h"
#include "components/common/DllServer.h"

namespace {

using namespace tollvane;

const com::ServerClass classes[] = {
    {&CLSID_clsAbout, L"Norrow_About.clsAbout", L"About component",
     com::createObject<about::AboutObject>},
};

const com::ServerClasses server{classes, &LIBID_Norrow_About, 1, 0};

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
