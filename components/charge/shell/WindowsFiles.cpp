#include "components/charge/shell/WindowsFiles.h"

#include "components/common/ComFailure.h"
#include "components/common/ComText.h"
#include "components/common/Folders.h"

#include <windows.h>

#include <algorithm>
#include <utility>

namespace tollvane::charge {

namespace {

constexpr int lockAttempts = 100;
constexpr DWORD lockPauseMilliseconds = 100;
constexpr std::uint64_t largestPiece = 1u << 20;

[[noreturn]] void fail(const FilePath& file, DWORD status) {
    throw FileFailure("\"" + com::narrow(std::wstring_view(file.native())) +
                      "\": " + com::systemText(status));
}

// Move-only owner of a file handle.
class File {
public:
    File(const FilePath& path, DWORD access, DWORD sharing, DWORD disposition)
        : handle_(CreateFileW(path.c_str(), access, sharing, nullptr, disposition,
                              FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    File(File&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    File& operator=(File&&) = delete;
    ~File() {
        if (isOpen())
            CloseHandle(handle_);
    }

    bool isOpen() const noexcept { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const noexcept { return handle_; }

private:
    HANDLE handle_;
};

class HeldLock final : public FileStore::Lock {
public:
    explicit HeldLock(File file) : file_(std::move(file)) {}

private:
    File file_;
};

void makeFolder(const FilePath& folder) {
    if (const DWORD status = com::makeFolders(folder.native()))
        fail(folder, status);
}

File openExisting(const FilePath& path, DWORD access) {
    File file(path, access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING);
    if (!file.isOpen()) {
        const DWORD status = GetLastError();
        if (status != ERROR_FILE_NOT_FOUND && status != ERROR_PATH_NOT_FOUND)
            fail(path, status);
    }
    return file;
}

std::uint64_t sizeOf(const File& file, const FilePath& path) {
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(file.get(), &size))
        fail(path, GetLastError());
    return static_cast<std::uint64_t>(size.QuadPart);
}

void moveTo(const File& file, const FilePath& path, std::uint64_t place) {
    LARGE_INTEGER target{};
    target.QuadPart = static_cast<LONGLONG>(place);
    if (!SetFilePointerEx(file.get(), target, nullptr, FILE_BEGIN))
        fail(path, GetLastError());
}

void flush(const File& file, const FilePath& path) {
    if (!FlushFileBuffers(file.get()))
        fail(path, GetLastError());
}

} // namespace

std::string WindowsFiles::read(const FilePath& path, std::uint64_t from) {
    const File file = openExisting(path, GENERIC_READ);
    if (!file.isOpen())
        return {};
    const std::uint64_t size = sizeOf(file, path);
    if (from >= size)
        return {};
    moveTo(file, path, from);
    std::string content(static_cast<std::size_t>(size - from), '\0');
    std::size_t done = 0;
    while (done < content.size()) {
        const auto wanted =
            static_cast<DWORD>(std::min<std::uint64_t>(content.size() - done, largestPiece));
        DWORD got = 0;
        if (!ReadFile(file.get(), content.data() + done, wanted, &got, nullptr))
            fail(path, GetLastError());
        if (got == 0)
            break;
        done += got;
    }
    content.resize(done);
    return content;
}

std::uint64_t WindowsFiles::size(const FilePath& path) {
    const File file = openExisting(path, GENERIC_READ);
    return file.isOpen() ? sizeOf(file, path) : 0;
}

void WindowsFiles::append(const FilePath& path, std::string_view bytes) {
    makeFolder(path.folder());
    const File file(path, GENERIC_WRITE, FILE_SHARE_READ, OPEN_ALWAYS);
    if (!file.isOpen())
        fail(path, GetLastError());
    moveTo(file, path, sizeOf(file, path));
    DWORD written = 0;
    if (!WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr))
        fail(path, GetLastError());
    // A full disk can take a part and call it a success.
    if (written != bytes.size())
        fail(path, ERROR_DISK_FULL);
    flush(file, path);
}

void WindowsFiles::truncate(const FilePath& path, std::uint64_t size) {
    const File file = openExisting(path, GENERIC_WRITE);
    if (!file.isOpen())
        return;
    moveTo(file, path, size);
    if (!SetEndOfFile(file.get()))
        fail(path, GetLastError());
    flush(file, path);
}

std::unique_ptr<FileStore::Lock> WindowsFiles::lock(const FilePath& folder) {
    makeFolder(folder);
    const FilePath path = folder / "zendacard.lck";
    for (int attempt = 1;; ++attempt) {
        File file(path, GENERIC_WRITE, 0, OPEN_ALWAYS);
        if (file.isOpen())
            return std::make_unique<HeldLock>(std::move(file));
        const DWORD status = GetLastError();
        if (status != ERROR_SHARING_VIOLATION || attempt == lockAttempts)
            fail(path, status);
        Sleep(lockPauseMilliseconds);
    }
}

} // namespace tollvane::charge
