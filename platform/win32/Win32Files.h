#pragma once

#include "platform/Files.h"

namespace tollvane::win32 {

class Win32Files final : public Files {
public:
    std::uint32_t probeForReading(const std::string& path) override;
    std::string findFile(const std::string& path) override;
    std::uint32_t setAttributes(const std::string& path, std::uint32_t attributes) override;
    std::uint32_t append(const std::string& path, std::string_view bytes) override;
    std::string profileString(const std::string& section, const std::string& key,
                              const std::string& fallback, std::uint32_t bufferSize,
                              const std::string& file) override;
    std::uint32_t startProcess(const std::string& commandLine, bool inheritHandles,
                               std::uint32_t creationFlags) override;
    std::string programFolder() override;
};

/// Full path of the running executable.
std::string executablePath();

} // namespace tollvane::win32
