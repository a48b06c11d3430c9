#pragma once

#include "platform/Files.h"

#include <map>
#include <string>
#include <vector>

namespace tollvane::test {

class FaultPlan;

/// Files, INI values and processes that exist only for the test. Names are compared without regard
/// to case.
class FakeFiles : public Files {
public:
    struct Process {
        std::string commandLine;
        bool inheritHandles = false;
        std::uint32_t creationFlags = 0;
    };

    explicit FakeFiles(FaultPlan& faults) : faults_(faults) {}

    std::uint32_t probeForReading(const std::string& path) override;
    std::string findFile(const std::string& path) override;
    std::uint32_t setAttributes(const std::string& path, std::uint32_t attributes) override;
    std::uint32_t append(const std::string& path, std::string_view bytes) override;
    std::string profileString(const std::string& section, const std::string& key,
                              const std::string& fallback, std::uint32_t bufferSize,
                              const std::string& file) override;
    std::uint32_t startProcess(const std::string& commandLine, bool inheritHandles,
                               std::uint32_t creationFlags) override;
    std::string programFolder() override { return folder; }

    void addFile(const std::string& path) { addFile(path, 0); }
    /// What was appended to a file.
    std::string contents(const std::string& path) const;
    std::uint32_t attributes(const std::string& path) const;
    /// A file whose opening fails: 32 held by another program, 5 no permission ...
    void addFile(const std::string& path, std::uint32_t openError) {
        files_[lower(path)] = {.name = baseName(path), .openError = openError};
    }
    void removeFile(const std::string& path) { files_.erase(lower(path)); }
    void setIni(const std::string& file, const std::string& section, const std::string& key,
                const std::string& value);

    std::string folder = "C:\\Program Files\\Tollvane";
    /// What the next processes end in; 0 starts them.
    std::uint32_t startError = 0;
    std::vector<Process> processes;
    std::vector<std::string> probed; ///< every path asked for, as it was written

private:
    struct File {
        std::string name;
        std::uint32_t openError = 0;
        std::uint32_t attributes = fileattribute::normal;
        std::string contents{};
    };

    static std::string baseName(const std::string& path);
    static std::string lower(std::string text);
    static std::string iniKey(const std::string& file, const std::string& section,
                              const std::string& key);

    FaultPlan& faults_;
    std::map<std::string, File> files_;
    std::map<std::string, std::string> ini_;
};

} // namespace tollvane::test
