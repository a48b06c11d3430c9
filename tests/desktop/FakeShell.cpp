#include "tests/desktop/FakeShell.h"

#include "tests/desktop/FaultPlan.h"

namespace tollvane::test {

namespace {
constexpr std::int32_t kLaunched = 33;
constexpr std::int32_t kNoAssociation = 31;
constexpr long kContents = -1;
} // namespace

std::int32_t FakeShell::execute(WindowNumber owner, const std::string& verb,
                                const std::string& file, const std::string& parameters,
                                const std::string& folder, int showCommand) {
    executions.push_back({owner, verb, file, parameters, folder, showCommand});
    if (faults_.strikes(Port::shell, "execute")) {
        return static_cast<std::int32_t>(faults_.number());
    }
    return result;
}

std::int32_t FakeShell::findProgram(const std::string& /*file*/, const std::string& /*folder*/,
                                    std::string& program) {
    program.clear();
    if (faults_.strikes(Port::shell, "findProgram")) {
        return static_cast<std::int32_t>(faults_.number());
    }
    program = browser;
    return program.empty() ? kNoAssociation : kLaunched;
}

bool FakeShell::helpContents(WindowNumber owner, const std::string& helpFile) {
    return helpTopic(owner, helpFile, kContents);
}

bool FakeShell::helpTopic(WindowNumber owner, const std::string& helpFile, long topic) {
    helpCalls.push_back({owner, helpFile, topic});
    return !faults_.strikes(Port::shell, "help") && helpFiles.count(helpFile) != 0;
}

std::string FakeShell::compactPath(const std::string& path, int longest) {
    const auto room = static_cast<std::size_t>(longest);
    if (path.size() <= room || room < 3) {
        return path.substr(0, room);
    }
    return "..." + path.substr(path.size() - (room - 3));
}

} // namespace tollvane::test
