#include "components/hostdata/win/ServerSettings.h"

#include "components/common/RegistryKey.h"
#include "components/hostdata/HostDataError.h"
#include "components/hostdata/win/Utf8.h"

#include <windows.h>

#include <shlobj.h>

namespace tollvane::hostdata {

namespace {

constexpr const wchar_t* kKey = L"Software\\Norrow Programs\\Host Data";

std::wstring defaultStorePath() {
    wchar_t folder[MAX_PATH] = {};
    if (FAILED(
            SHGetFolderPathW(nullptr, CSIDL_COMMON_APPDATA, nullptr, SHGFP_TYPE_CURRENT, folder)))
        throw HostDataError(Failure::storeNotOpened,
                            "The machine's folder for application data was not found.");
    return std::wstring(folder) + L"\\Norrow Programs\\Host Data\\hostdata.db";
}

std::wstring computerName() {
    wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = {};
    DWORD length = static_cast<DWORD>(std::size(name));
    return GetComputerNameW(name, &length) ? std::wstring(name, length) : std::wstring();
}

} // namespace

ServerSettings readServerSettings() {
    const auto key = com::RegistryKey::openForReading(HKEY_LOCAL_MACHINE, kKey);
    std::wstring store = key.text(L"Store").value_or(L"");
    std::wstring location = key.text(L"Location").value_or(L"");
    if (store.empty())
        store = defaultStorePath();
    if (location.empty())
        location = computerName();
    return {utf8(store), utf8(location)};
}

std::string folderOf(const std::string& path) {
    const auto end = path.find_last_of("\\/");
    return end == std::string::npos ? std::string() : path.substr(0, end);
}

} // namespace tollvane::hostdata
