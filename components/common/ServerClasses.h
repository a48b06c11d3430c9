// What a server binary offers: one table per binary.
#pragma once

#include <windows.h>

#include <span>

namespace tollvane::com {

struct ServerClass {
    const CLSID* classId;
    // Without version number; null for a class that is only created by its class id.
    const wchar_t* progId;
    // Shown by registration tools.
    const wchar_t* description;
    // Creates an object and queries it; createObject<T> fits.
    HRESULT (*create)(REFIID iid, void** out);
};

struct ServerClasses {
    std::span<const ServerClass> classes;
    const GUID* typeLibraryId;
    WORD majorVersion;
    WORD minorVersion;
};

} // namespace tollvane::com
