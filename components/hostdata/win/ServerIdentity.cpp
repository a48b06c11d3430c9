#include "components/hostdata/win/ServerIdentity.h"

#include "HostData.h"
#include "components/common/RegistryKey.h"

#include <objbase.h>
#include <rpcdce.h>

namespace tollvane::hostdata {

namespace {

// The class id serves as the application id, too.
std::wstring identifier() {
    wchar_t text[64] = {};
    StringFromGUID2(CLSID_dcclsZenda32, text, static_cast<int>(std::size(text)));
    return text;
}

std::wstring applicationKey() {
    return L"Software\\Classes\\AppID\\" + identifier();
}
constexpr const wchar_t* kProgramKey = L"Software\\Classes\\AppID\\dcZenda32.exe";

com::RegistryKey key(const std::wstring& path) {
    return com::RegistryKey::create(HKEY_LOCAL_MACHINE, path);
}

} // namespace

void registerIdentity() {
    auto application = key(applicationKey());
    application.setText(L"", L"Host data server");
    application.setNumber(L"AuthenticationLevel", RPC_C_AUTHN_LEVEL_PKT_PRIVACY);
    key(kProgramKey).setText(L"AppID", identifier());
    key(L"Software\\Classes\\CLSID\\" + identifier()).setText(L"AppID", identifier());
}

void unregisterIdentity() {
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, applicationKey().c_str());
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, kProgramKey);
}

} // namespace tollvane::hostdata
