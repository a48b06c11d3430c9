#pragma once

#include "platform/Shell.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace tollvane::test {

class FaultPlan;

/// A shell that launches nothing and notes what it was asked for. Help files and programs are
/// those that the test names.
class FakeShell : public Shell {
public:
    /// A call of `execute`, argument for argument.
    struct Execution {
        WindowNumber owner = 0;
        std::string verb;
        std::string file;
        std::string parameters;
        std::string folder;
        int showCommand = 0;
        bool operator==(const Execution&) const = default;
    };
    /// A help file that was asked for; topic -1 stands for the contents.
    struct HelpCall {
        WindowNumber owner = 0;
        std::string file;
        long topic = -1;
        bool operator==(const HelpCall&) const = default;
    };

    explicit FakeShell(FaultPlan& faults) : faults_(faults) {}

    std::int32_t execute(WindowNumber owner, const std::string& verb, const std::string& file,
                         const std::string& parameters, const std::string& folder,
                         int showCommand) override;
    std::int32_t findProgram(const std::string& file, const std::string& folder,
                             std::string& program) override;
    bool helpContents(WindowNumber owner, const std::string& helpFile) override;
    bool helpTopic(WindowNumber owner, const std::string& helpFile, long topic) override;
    std::string compactPath(const std::string& path, int longest) override;

    /// What the next calls of `execute` answer.
    std::int32_t result = 33;
    std::vector<Execution> executions;
    std::vector<HelpCall> helpCalls;
    /// Help files that the help engine shows; there are none at first.
    std::set<std::string> helpFiles;
    /// The program that opens pages; empty when there is none (result code 31).
    std::string browser = "C:\\Browser\\browser.exe";

private:
    FaultPlan& faults_;
};

} // namespace tollvane::test
