#pragma once

#include "platform/Form.h"

#include <cstdint>
#include <string>

namespace tollvane {

/// What the shell answers when it launched something: any number above this one.
inline constexpr std::int32_t kLargestLaunchError = 32;
/// Show command of a program's window: as the system shows a new one.
inline constexpr int kShowNormal = 1;

/// Documents, their programs, help files and paths, as the system's shell treats them. Nothing here
/// raises; empty texts are left out of the system's calls.
class Shell {
public:
    virtual ~Shell() = default;

    /// The shell's own call, argument for argument: runs a verb ("Open", "print") on a file for an
    /// owner window. Returns the shell's result code; kLargestLaunchError or less is a failure.
    virtual std::int32_t execute(WindowNumber owner, const std::string& verb,
                                 const std::string& file, const std::string& parameters,
                                 const std::string& folder, int showCommand) = 0;
    /// Writes the path of the program that opens this file into `program`. Returns a result code as
    /// `execute` does; on a failure `program` is empty.
    virtual std::int32_t findProgram(const std::string& file, const std::string& folder,
                                     std::string& program) = 0;

    /// Opens a help file at its contents, or at a topic. False when there is no such file or no
    /// help engine that shows it; the operator has then seen nothing.
    virtual bool helpContents(WindowNumber owner, const std::string& helpFile) = 0;
    virtual bool helpTopic(WindowNumber owner, const std::string& helpFile, long topic) = 0;

    /// The path as it is, or with parts of it replaced by "..." so that it has no more than
    /// `longest` characters.
    virtual std::string compactPath(const std::string& path, int longest) = 0;
};

} // namespace tollvane
