// The library's entry points.
#include "components/charge/shell/CardNumberCheckerObject.h"
#include "components/charge/shell/ChargeObject.h"
#include "components/common/DllServer.h"

namespace {

using namespace tollvane;

const com::ServerClass classes[] = {
    {&CLSID_Tollvane, L"ZendaSwiftill.Tollvane", L"Zendacard charge component",
     com::createObject<charge::ChargeObject>},
    {&CLSID_CardNumberChecker, nullptr, L"Zendacard card number checker",
     com::createObject<charge::CardNumberCheckerObject>},
};

const com::ServerClasses server{classes, &LIBID_ZendaSwiftill, 1, 0};

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
