// The log as a file that others append to, shorten and replace while it is open here. It is read
// piece by piece and never mapped: Windows refuses to shorten a mapped file, and the charge
// component, which does that before every payment, would then refuse the payment.
#pragma once

#include <windows.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <utility>

namespace tollvane::logviewer {

class LogFile {
public:
    LogFile() = default;
    // Not open when the file is not there or may not be read.
    explicit LogFile(const std::filesystem::path& path);
    LogFile(LogFile&& other) noexcept
        : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
    LogFile& operator=(LogFile&& other) noexcept;
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;
    ~LogFile();

    [[nodiscard]] bool isOpen() const noexcept { return handle_ != INVALID_HANDLE_VALUE; }
    // 0 when it cannot be told.
    [[nodiscard]] std::uint64_t size() const noexcept;
    // As many bytes from that place as there are, at most so many. Safe from several threads.
    [[nodiscard]] std::string read(std::uint64_t from, std::size_t most) const;

private:
    HANDLE handle_ = INVALID_HANDLE_VALUE;
};

} // namespace tollvane::logviewer
