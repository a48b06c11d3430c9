#include "components/common/Registration.h"

#include "components/common/ComFailure.h"
#include "components/common/ComPtr.h"
#include "components/common/ModuleLock.h"
#include "components/common/RegistryKey.h"

#include <objbase.h>
#include <oleauto.h>

namespace tollvane::com {

namespace {

constexpr const wchar_t* classesPath = L"Software\\Classes\\";

std::wstring guidText(const GUID& guid) {
    wchar_t text[64] = {};
    StringFromGUID2(guid, text, static_cast<int>(std::size(text)));
    return text;
}

std::wstring versionedProgId(const ServerClass& serverClass, const ServerClasses& server) {
    return std::wstring(serverClass.progId) + L"." + std::to_wstring(server.majorVersion);
}

void writeDefault(const std::wstring& path, const std::wstring& text) {
    RegistryKey::create(HKEY_LOCAL_MACHINE, classesPath + path).setText(L"", text);
}

void writeProgIds(const ServerClasses& server, const ServerClass& each) {
    const std::wstring classText = guidText(*each.classId);
    const std::wstring versioned = versionedProgId(each, server);
    const std::wstring plain = each.progId;
    writeDefault(plain, each.description);
    writeDefault(plain + L"\\CLSID", classText);
    writeDefault(plain + L"\\CurVer", versioned);
    writeDefault(versioned, each.description);
    writeDefault(versioned + L"\\CLSID", classText);
    writeDefault(L"CLSID\\" + classText + L"\\ProgID", versioned);
    writeDefault(L"CLSID\\" + classText + L"\\VersionIndependentProgID", plain);
}

void writeClass(const ServerClasses& server, const ServerClass& each, ServerKind kind) {
    const std::wstring key = L"CLSID\\" + guidText(*each.classId);
    writeDefault(key, each.description);
    if (kind == ServerKind::Library) {
        writeDefault(key + L"\\InprocServer32", modulePath());
        RegistryKey::create(HKEY_LOCAL_MACHINE, classesPath + key + L"\\InprocServer32")
            .setText(L"ThreadingModel", L"Apartment");
    } else {
        const std::wstring path = modulePath();
        const bool blanks = path.find(L' ') != std::wstring::npos;
        writeDefault(key + L"\\LocalServer32", blanks ? L"\"" + path + L"\"" : path);
    }
    writeDefault(key + L"\\TypeLib", guidText(*server.typeLibraryId));
    writeDefault(key + L"\\Version", std::to_wstring(server.majorVersion) + L"." +
                                         std::to_wstring(server.minorVersion));
    writeDefault(key + L"\\Programmable", L"");
    if (each.progId)
        writeProgIds(server, each);
}

void removeTree(const std::wstring& path) {
    const LSTATUS status = RegDeleteTreeW(HKEY_LOCAL_MACHINE, (classesPath + path).c_str());
    if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND)
        throwLastError(static_cast<DWORD>(status));
}

constexpr SYSKIND systemKind() {
    return sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
}

} // namespace

std::wstring modulePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(thisModule(), path.data(), static_cast<DWORD>(path.size()));
        if (length == 0)
            throwLastError();
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

void registerServer(const ServerClasses& server, ServerKind kind) {
    std::wstring path = modulePath(); // RegisterTypeLib wants a writable text
    ComPtr<ITypeLib> library;
    check(LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.put()));
    check(RegisterTypeLib(library.get(), path.data(), nullptr));
    for (const ServerClass& each : server.classes)
        writeClass(server, each, kind);
}

void unregisterServer(const ServerClasses& server) {
    for (const ServerClass& each : server.classes) {
        removeTree(L"CLSID\\" + guidText(*each.classId));
        if (each.progId) {
            removeTree(each.progId);
            removeTree(versionedProgId(each, server));
        }
    }
    if (!RegistryKey::openForReading(HKEY_LOCAL_MACHINE, std::wstring(classesPath) + L"TypeLib\\" +
                                                             guidText(*server.typeLibraryId)))
        return;
    check(UnRegisterTypeLib(*server.typeLibraryId, server.majorVersion, server.minorVersion,
                            LOCALE_NEUTRAL, systemKind()));
}

} // namespace tollvane::com
