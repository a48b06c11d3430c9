// Folders of the file system.
#pragma once

#include <windows.h>

#include <string>

namespace tollvane::com {

// The path without its last name; empty when there is none above.
[[nodiscard]] std::wstring folderAbove(const std::wstring& path);

// Makes a folder, and those above it, where they are missing. ERROR_SUCCESS when it is there now,
// otherwise the system's reason.
[[nodiscard]] DWORD makeFolders(const std::wstring& folder);

} // namespace tollvane::com
