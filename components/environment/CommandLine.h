// The switches on the program's command line.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>

namespace tollvane::environment {

// What was given; a switch that is missing is empty here, one with an empty value is not.
struct CommandLine {
    std::optional<std::wstring> server;
    std::optional<std::wstring> data;
    std::optional<std::wstring> location;
    std::optional<std::wstring> user;
};

// A command line that cannot be understood; the text is for whoever wrote it (8-bit, plain ASCII
// but for the words that it quotes).
class CommandLineError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Switches are /server:NAME, /data:PATH, /location:NAME and /user:NAME, in any order; "-" may
// stand for "/", capital and small letters are the same, and a value with blanks stands in double
// quotes. The last of two equal switches counts. A blank command line gives nothing. Raises
// CommandLineError for everything else.
[[nodiscard]] CommandLine parseCommandLine(const std::wstring& text);

} // namespace tollvane::environment
