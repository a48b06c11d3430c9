#pragma once

#include <cstdint>
#include <string>

namespace tollvane {

/// Files, INI values and processes. System error numbers are the platform's own; 0 is success.
class Files {
public:
    virtual ~Files() = default;

    /// Opens an existing file for reading, sharing reads, closes it again and returns the error.
    virtual std::uint32_t probeForReading(const std::string& path) = 0;
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
