#include "components/environment/EnvironmentSettings.h"

#include "components/common/RegistryKey.h"

#include <windows.h>

#include <shlobj.h>

#include <iterator>

namespace tollvane::environment {

namespace {
constexpr const wchar_t* kKey = L"Software\\Norrow Programs\\Environment";
} // namespace

std::wstring readSetting(const wchar_t* name) {
    return com::RegistryKey::openForReading(HKEY_LOCAL_MACHINE, kKey).text(name).value_or(L"");
}

std::wstring defaultDataPath() {
    wchar_t folder[MAX_PATH] = {};
    if (FAILED(
            SHGetFolderPathW(nullptr, CSIDL_COMMON_APPDATA, nullptr, SHGFP_TYPE_CURRENT, folder)))
        return {};
    return std::wstring(folder) + L"\\Norrow Programs\\Host Data";
}

std::wstring computerName() {
    wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = {};
    auto length = static_cast<DWORD>(std::size(name));
    return GetComputerNameW(name, &length) ? std::wstring(name, length) : std::wstring();
}

} // namespace tollvane::environment
