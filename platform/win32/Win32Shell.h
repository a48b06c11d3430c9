#pragma once

#include "platform/Shell.h"

namespace tollvane::win32 {

class Win32Shell final : public Shell {
public:
    std::int32_t execute(WindowNumber owner, const std::string& verb, const std::string& file,
                         const std::string& parameters, const std::string& folder,
                         int showCommand) override;
    std::int32_t findProgram(const std::string& file, const std::string& folder,
                             std::string& program) override;
    bool helpContents(WindowNumber owner, const std::string& helpFile) override;
    bool helpTopic(WindowNumber owner, const std::string& helpFile, long topic) override;
    std::string compactPath(const std::string& path, int longest) override;
};

} // namespace tollvane::win32
