#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tollvane {

/// File attributes: a sum of these.
namespace fileattribute {
inline constexpr std::uint32_t readOnly = 0x01;
inline constexpr std::uint32_t normal = 0x80;
} // namespace fileattribute

/// Files, INI values and processes. System error numbers are the platform's own; 0 is success.
class Files {
public:
    virtual ~Files() = default;

    /// Opens an existing file for reading, sharing reads, closes it again and returns the error.
    virtual std::uint32_t probeForReading(const std::string& path) = 0;
    /// Looks the full path up in its folder, which also finds files that cannot be opened. Returns
    /// the file's name as the folder has it; empty when there is none.
    virtual std::string findFile(const std::string& path) = 0;
    /// Sets all attributes of a file; returns the error.
    virtual std::uint32_t setAttributes(const std::string& path, std::uint32_t attributes) = 0;
    /// Writes to the end of a file, which is created when it is missing; returns the error.
    virtual std::uint32_t append(const std::string& path, std::string_view bytes) = 0;
    /// The private-profile reader with a buffer of `bufferSize` characters.
    virtual std::string profileString(const std::string& section, const std::string& key,
                                      const std::string& fallback, std::uint32_t bufferSize,
                                      const std::string& file) = 0;
    /// Starts a process and closes its handles at once; returns the error.
    virtual std::uint32_t startProcess(const std::string& commandLine, bool inheritHandles,
                                       std::uint32_t creationFlags) = 0;
    /// Folder of the running executable, as the system names it.
    virtual std::string programFolder() = 0;
};

} // namespace tollvane
