// With the system's own calls: the library's paths and streams would be a third of the server.
#include "components/hostdata/store/StoreFiles.h"

#include "components/common/Folders.h"
#include "components/hostdata/win/Utf8.h"

#include <windows.h>

namespace tollvane::hostdata {

namespace {

// What tells a file from all others while it is open.
class OpenFile {
public:
    explicit OpenFile(const std::string& path)
        : handle_(CreateFileW(wide(path).c_str(), 0,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr)) {
        known_ = handle_ != INVALID_HANDLE_VALUE && GetFileInformationByHandle(handle_, &facts_);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() {
        if (handle_ != INVALID_HANDLE_VALUE)
            CloseHandle(handle_);
    }

    [[nodiscard]] bool is(const OpenFile& other) const noexcept {
        return known_ && other.known_ &&
               facts_.dwVolumeSerialNumber == other.facts_.dwVolumeSerialNumber &&
               facts_.nFileIndexHigh == other.facts_.nFileIndexHigh &&
               facts_.nFileIndexLow == other.facts_.nFileIndexLow;
    }

private:
    HANDLE handle_;
    BY_HANDLE_FILE_INFORMATION facts_{};
    bool known_ = false;
};

} // namespace

bool fileExists(const std::string& path) {
    return GetFileAttributesW(wide(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::uint64_t fileSize(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA facts{};
    if (!GetFileAttributesExW(wide(path).c_str(), GetFileExInfoStandard, &facts))
        return 0;
    return std::uint64_t{facts.nFileSizeHigh} << 32 | facts.nFileSizeLow;
}

bool isSameFile(const std::string& one, const std::string& other) {
    return OpenFile(one).is(OpenFile(other));
}

void makeFoldersOf(const std::string& path) {
    static_cast<void>(com::makeFolders(com::folderAbove(wide(path))));
}

std::error_code moveFile(const std::string& path, const std::string& target) {
    if (MoveFileExW(wide(path).c_str(), wide(target).c_str(), MOVEFILE_REPLACE_EXISTING))
        return {};
    return {static_cast<int>(GetLastError()), std::system_category()};
}

void removeFile(const std::string& path) noexcept {
    DeleteFileW(wide(path).c_str());
}

} // namespace tollvane::hostdata
