#include "components/logviewer/win/LogFile.h"

namespace tollvane::logviewer {

LogFile::LogFile(const std::filesystem::path& path)
    : handle_(CreateFileW(path.c_str(), GENERIC_READ,
                          FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                          OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)) {}

LogFile& LogFile::operator=(LogFile&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
}

LogFile::~LogFile() {
    if (isOpen())
        CloseHandle(handle_);
}

std::uint64_t LogFile::size() const noexcept {
    LARGE_INTEGER size{};
    if (!isOpen() || !GetFileSizeEx(handle_, &size))
        return 0;
    return static_cast<std::uint64_t>(size.QuadPart);
}

std::string LogFile::read(std::uint64_t from, std::size_t most) const {
    std::string bytes(most, '\0');
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(from);
    place.OffsetHigh = static_cast<DWORD>(from >> 32);
    DWORD got = 0;
    if (!isOpen() ||
        !ReadFile(handle_, bytes.data(), static_cast<DWORD>(bytes.size()), &got, &place))
        got = 0;
    bytes.resize(got);
    return bytes;
}

} // namespace tollvane::logviewer
