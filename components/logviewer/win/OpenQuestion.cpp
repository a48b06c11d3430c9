#include "components/logviewer/win/OpenQuestion.h"

#include <commdlg.h>

#include <iterator>

namespace tollvane::logviewer {

std::optional<std::filesystem::path> askWhichLog(HWND owner) {
    wchar_t path[1024] = {};
    OPENFILENAMEW question{};
    question.lStructSize = sizeof question;
    question.hwndOwner = owner;
    question.lpstrFilter = L"Logs (*.log)\0*.log\0All files\0*.*\0";
    question.lpstrFile = path;
    question.nMaxFile = static_cast<DWORD>(std::size(path));
    question.lpstrTitle = L"Open Log";
    question.Flags = OFN_FILEMUSTEXIST | OFN_NOCHANGEDIR | OFN_HIDEREADONLY | OFN_EXPLORER;
    if (!GetOpenFileNameW(&question))
        return std::nullopt;
    return path;
}

} // namespace tollvane::logviewer
