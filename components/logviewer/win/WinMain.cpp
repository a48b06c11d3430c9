// LogLens.exe FILE: shows a transaction log.
#include "components/common/BoxLanguage.h"
#include "components/logviewer/win/OpenQuestion.h"
#include "components/logviewer/win/ViewerWindow.h"

#include <windows.h>

#include <commctrl.h>

#include <exception>
#include <filesystem>
#include <string>

namespace {

using namespace tollvane::logviewer;

// What follows the program's own name: one path, with quotation marks or without them.
std::filesystem::path namedLog(std::wstring_view line) {
    const bool quoted = !line.empty() && line.front() == L'"';
    const std::size_t end = quoted ? line.find(L'"', 1) : line.find(L' ');
    if (end == std::wstring_view::npos)
        return {};
    line.remove_prefix(end + 1);
    constexpr std::wstring_view around = L" \t\"";
    const std::size_t first = line.find_first_not_of(around);
    if (first == std::wstring_view::npos)
        return {};
    return line.substr(first, line.find_last_not_of(around) - first + 1);
}

void run() {
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES |
                                                           ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&classes);
    std::filesystem::path log = namedLog(GetCommandLineW());
    if (log.empty())
        log = askWhichLog(nullptr).value_or(std::filesystem::path());
    if (!log.empty())
        ViewerWindow(log).run();
}

} // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    try {
        run();
        return 0;
    } catch (const std::exception& problem) {
        MessageBoxExA(nullptr, problem.what(), "LogLens", MB_OK | MB_ICONEXCLAMATION,
                      tollvane::com::kBoxLanguage);
        return 1;
    }
}
