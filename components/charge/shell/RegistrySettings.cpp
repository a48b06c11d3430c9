#include "components/charge/shell/RegistrySettings.h"

#include "components/common/ComFailure.h"
#include "components/common/ComText.h"
#include "components/common/RegistryKey.h"

#include <windows.h>

#include <shlobj.h>

#include <utility>

namespace tollvane::charge {

namespace {

constexpr const wchar_t* keyPath = L"Software\\Norrow Programs\\Zendacard";
constexpr const wchar_t* testModeName = L"TestMode";
constexpr const wchar_t* merchantIdName = L"MerchantId";
constexpr const wchar_t* duplicateWindowName = L"DuplicateWindow";
constexpr const wchar_t* dataFolderName = L"DataFolder";
constexpr const wchar_t* logFolderName = L"LogFolder";
constexpr const wchar_t* logFileNameName = L"LogFileName";

FilePath pathOr(const com::RegistryKey& key, const wchar_t* name, FilePath otherwise) {
    auto text = key.text(name);
    return text && !text->empty() ? FilePath(*std::move(text)) : std::move(otherwise);
}

int duplicateWindow(const com::RegistryKey& key) {
    const auto seconds = key.number(duplicateWindowName);
    return seconds && *seconds <= static_cast<std::uint32_t>(longestDuplicateWindowSeconds)
               ? static_cast<int>(*seconds)
               : defaultDuplicateWindowSeconds;
}

com::RegistryKey keyForWriting() {
    try {
        return com::RegistryKey::create(HKEY_LOCAL_MACHINE, keyPath);
    } catch (const com::ComponentError& error) {
        throw com::ComponentError(error.number(), "Zendacard.Settings",
                                  "The settings cannot be saved. " + error.description());
    }
}

} // namespace

Settings RegistrySettings::read() {
    const com::RegistryKey key = com::RegistryKey::openForReading(HKEY_LOCAL_MACHINE, keyPath);
    Settings settings;
    settings.testMode = key.number(testModeName).value_or(1) != 0;
    settings.merchantId = com::narrow(key.text(merchantIdName).value_or(L""));
    settings.duplicateWindowSeconds = duplicateWindow(key);
    settings.dataFolder = pathOr(key, dataFolderName, defaultFolder());
    settings.logFolder = pathOr(key, logFolderName, settings.dataFolder);
    settings.logFileName = pathOr(key, logFileNameName, defaultLogFileName);
    return settings;
}

void RegistrySettings::writeGateway(const Settings& settings) {
    com::RegistryKey key = keyForWriting();
    key.setText(merchantIdName, com::widen(settings.merchantId));
    key.setNumber(duplicateWindowName, static_cast<std::uint32_t>(settings.duplicateWindowSeconds));
    key.setNumber(testModeName, settings.testMode ? 1 : 0);
}

void RegistrySettings::writeFolders(const Settings& settings) {
    com::RegistryKey key = keyForWriting();
    key.setText(dataFolderName, settings.dataFolder.native());
    key.setText(logFolderName, settings.logFolder.native());
    key.setText(logFileNameName, settings.logFileName.native());
}

FilePath RegistrySettings::defaultFolder() {
    wchar_t folder[MAX_PATH] = {};
    com::check(
        SHGetFolderPathW(nullptr, CSIDL_COMMON_APPDATA, nullptr, SHGFP_TYPE_CURRENT, folder));
    return FilePath(std::wstring(folder)) / "Norrow Programs" / "Zendacard";
}

} // namespace tollvane::charge
