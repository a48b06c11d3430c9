#include "platform/win32/Win32Shell.h"

#include "platform/win32/SystemText.h"

#include <windows.h>

#include <shellapi.h>
#include <shlwapi.h>

#include <array>
#include <string_view>
#include <vector>

namespace tollvane::win32 {

namespace {

const char* orNull(const std::string& text) {
    return text.empty() ? nullptr : text.c_str();
}

/// The shell calls its result code an instance handle.
std::int32_t codeOf(HINSTANCE result) {
    return static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(result));
}

HWND windowOf(WindowNumber number) {
    return static_cast<HWND>(LongToHandle(number)); // NOLINT(performance-no-int-to-ptr)
}

bool isThere(const std::string& file) {
    const DWORD attributes = GetFileAttributesA(file.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

/// The engine complains of a missing file in a box of its own; it is not even asked for one.
bool showHelp(WindowNumber owner, const std::string& helpFile, UINT command, ULONG_PTR data) {
    return isThere(helpFile) && WinHelpA(windowOf(owner), helpFile.c_str(), command, data) != FALSE;
}

} // namespace

std::int32_t Win32Shell::execute(WindowNumber owner, const std::string& verb,
                                 const std::string& file, const std::string& parameters,
                                 const std::string& folder, int showCommand) {
    return codeOf(ShellExecuteA(windowOf(owner), orNull(verb), file.c_str(), orNull(parameters),
                                orNull(folder), showCommand));
}

std::int32_t Win32Shell::findProgram(const std::string& file, const std::string& folder,
                                     std::string& program) {
    std::array<char, MAX_PATH> path{};
    const std::int32_t code = codeOf(FindExecutableA(file.c_str(), orNull(folder), path.data()));
    program = code > kLargestLaunchError ? path.data() : "";
    return code;
}

bool Win32Shell::helpContents(WindowNumber owner, const std::string& helpFile) {
    return showHelp(owner, helpFile, HELP_CONTENTS, 0);
}

bool Win32Shell::helpTopic(WindowNumber owner, const std::string& helpFile, long topic) {
    return showHelp(owner, helpFile, HELP_CONTEXT, static_cast<ULONG_PTR>(topic));
}

std::string Win32Shell::compactPath(const std::string& path, int longest) {
    const std::wstring wide = widened(path);
    if (longest <= 0) {
        return {};
    }
    const auto room = static_cast<std::size_t>(longest);
    if (wide.size() <= room) {
        return path;
    }
    std::vector<wchar_t> compacted(room + 1);
    if (wide.size() >= MAX_PATH || // more than the system's routine takes
        !PathCompactPathExW(compacted.data(), wide.c_str(), static_cast<UINT>(room + 1), 0)) {
        constexpr std::wstring_view kDots = L"...";
        const std::size_t kept = room > kDots.size() ? room - kDots.size() : 0;
        return narrowed((std::wstring(kDots) + wide.substr(wide.size() - kept)).substr(0, room));
    }
    return narrowed(compacted.data());
}

} // namespace tollvane::win32
