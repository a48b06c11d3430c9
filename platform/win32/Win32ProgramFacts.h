#pragma once

#include "platform/ProgramFacts.h"
#include "platform/win32/Handles.h"

#include <optional>

namespace tollvane::win32 {

class Win32ProgramFacts final : public ProgramFacts {
public:
    explicit Win32ProgramFacts(HINSTANCE instance) : instance_(instance) {}

    std::string exeName() override;
    std::string productName() override;
    std::string commandLine() override;
    bool anotherInstanceRuns() override;
    std::string resourceString(unsigned id) override;

private:
    HINSTANCE instance_;
    std::string productName_;
    KernelHandle place_; ///< kept until the program ends, so that the next start sees it
    std::optional<bool> anotherRuns_;
};

/// What follows the program's name in a whole command line: one separating blank is taken off, the
/// rest stays as it was typed.
std::string argumentsOf(const std::string& wholeCommandLine);

} // namespace tollvane::win32
