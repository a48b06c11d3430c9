#include "components/common/Folders.h"

namespace tollvane::com {

namespace {

bool isFolder(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

} // namespace

std::wstring folderAbove(const std::wstring& path) {
    const auto end = path.find_last_of(L"\\/");
    return end == std::wstring::npos ? std::wstring() : path.substr(0, end);
}

DWORD makeFolders(const std::wstring& folder) {
    if (isFolder(folder))
        return ERROR_SUCCESS;
    if (const std::wstring above = folderAbove(folder); !above.empty())
        if (const DWORD status = makeFolders(above))
            return status;
    if (CreateDirectoryW(folder.c_str(), nullptr))
        return ERROR_SUCCESS;
    // Somebody else may have made it in between.
    const DWORD status = GetLastError();
    return isFolder(folder) ? ERROR_SUCCESS : status;
}

} // namespace tollvane::com
