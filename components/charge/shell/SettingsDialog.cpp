#include "components/charge/shell/SettingsDialog.h"

#include "components/common/ComFailure.h"
#include "components/common/ComText.h"
#include "components/common/Folders.h"

#include <objbase.h>
#include <shlobj.h>

#include <memory>
#include <utility>

namespace tollvane::charge {

namespace {

enum ControlId { idLogFolder = 101, idBrowseLog, idLogName, idDataFolder, idBrowseData };

constexpr int longestPath = 240;

using com::DialogItem;

constexpr com::DialogControl controls[] = {
    {DialogItem::Group, -1, L"fraLog", L"Transaction log", 7, 7, 296, 52},
    {DialogItem::Label, -1, L"lblLogFolder", L"&Folder:", 16, 22, 48, 9},
    {DialogItem::TextBox, idLogFolder, L"txtLogFolder", L"", 68, 19, 170, 14, longestPath},
    {DialogItem::Button, idBrowseLog, L"cmdBrowseLog", L"&Browse...", 242, 18, 52, 15},
    {DialogItem::Label, -1, L"lblLogFileName", L"File &name:", 16, 41, 48, 9},
    {DialogItem::TextBox, idLogName, L"txtLogFileName", L"", 68, 38, 170, 14, 100},
    {DialogItem::Group, -1, L"fraData", L"Data", 7, 65, 296, 48},
    {DialogItem::Label, -1, L"lblDataFolder", L"&Data folder:", 16, 80, 48, 9},
    {DialogItem::TextBox, idDataFolder, L"txtDataFolder", L"", 68, 77, 170, 14, longestPath},
    {DialogItem::Button, idBrowseData, L"cmdBrowseData", L"B&rowse...", 242, 76, 52, 15},
    {DialogItem::Note, -1, L"lblDataNote",
     L"Earlier transactions stay in the folder in which they were made.", 68, 95, 226, 9},
    {DialogItem::DefaultButton, IDOK, L"cmdOK", L"OK", 194, 120, 52, 15},
    {DialogItem::CancelButton, IDCANCEL, L"cmdCancel", L"Cancel", 251, 120, 52, 15},
};

constexpr com::DialogLayout layout{L"frmSettings", L"Charge Component Settings", 310, 142,
                                   controls};

struct ShellFree {
    void operator()(void* memory) const noexcept { CoTaskMemFree(memory); }
};

bool isSeparator(wchar_t character) {
    return character == L'\\' || character == L'/';
}

// "C:\Data" or "\\server\share": the same folder wherever the process stands.
bool isWhole(const std::wstring& path) {
    if (path.size() < 3)
        return false;
    return isSeparator(path[0]) ? isSeparator(path[1]) : path[1] == L':' && isSeparator(path[2]);
}

} // namespace

SettingsDialog::SettingsDialog(Settings settings)
    : ModalDialog(layout), settings_(std::move(settings)) {}

void SettingsDialog::onShow() {
    setText(idLogFolder, com::narrow(std::wstring_view(settings_.logFolder.native())));
    setText(idLogName, com::narrow(std::wstring_view(settings_.logFileName.native())));
    setText(idDataFolder, com::narrow(std::wstring_view(settings_.dataFolder.native())));
}

void SettingsDialog::onCommand(int id, int notification) {
    if (notification != BN_CLICKED)
        return;
    if (id == idBrowseLog)
        browse(idLogFolder, L"Folder of the transaction log");
    else if (id == idBrowseData)
        browse(idDataFolder, L"Folder of the data");
}

void SettingsDialog::browse(int boxId, const wchar_t* title) {
    BROWSEINFOW question{};
    question.hwndOwner = window();
    question.lpszTitle = title;
    question.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE;
    const std::unique_ptr<ITEMIDLIST, ShellFree> choice(SHBrowseForFolderW(&question));
    wchar_t folder[MAX_PATH] = {};
    if (choice && SHGetPathFromIDListW(choice.get(), folder))
        setText(boxId, com::narrow(std::wstring_view(folder)));
    focus(boxId);
}

bool SettingsDialog::acceptFolder(int boxId, FilePath& folder) {
    const FilePath entered(com::widen(text(boxId)));
    if (!isWhole(entered.native())) {
        complain("Enter a whole path, such as \"C:\\Data\".", boxId);
        return false;
    }
    if (const DWORD status = com::makeFolders(entered.native())) {
        complain("This folder cannot be made. " + com::systemText(status), boxId);
        return false;
    }
    folder = entered;
    return true;
}

bool SettingsDialog::onOk() {
    const std::string name = text(idLogName);
    if (!acceptFolder(idLogFolder, settings_.logFolder))
        return false;
    if (!isPlainFileName(name)) {
        complain("Enter a file name for the transaction log, such as \"ZENDACARD.LOG\".",
                 idLogName);
        return false;
    }
    settings_.logFileName = FilePath(com::widen(name));
    return acceptFolder(idDataFolder, settings_.dataFolder);
}

} // namespace tollvane::charge
