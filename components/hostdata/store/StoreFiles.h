// What the store asks of the file system besides the engine's own work. Every path is UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <system_error>

namespace tollvane::hostdata {

[[nodiscard]] bool fileExists(const std::string& path);
// In bytes; 0 for a file that is not there.
[[nodiscard]] std::uint64_t fileSize(const std::string& path);
// However the two are written; false when one of them is not there.
[[nodiscard]] bool isSameFile(const std::string& one, const std::string& other);
// Makes the folders of a file where they are missing. What stands against it shows when the file is
// opened.
void makeFoldersOf(const std::string& path);
// Replaces what is at the target; answers what stood against it.
[[nodiscard]] std::error_code moveFile(const std::string& path, const std::string& target);
void removeFile(const std::string& path) noexcept;

} // namespace tollvane::hostdata
