#include "components/hostdata/win/HostDataDialog.h"

#include "components/common/BoxLanguage.h"
#include "components/hostdata/HostDataError.h"
#include "components/hostdata/store/StoreCare.h"
#include "components/hostdata/win/ServerSettings.h"
#include "components/hostdata/win/Utf8.h"

#include <windows.h>

#include <commdlg.h>
#include <shlobj.h>

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

namespace tollvane::hostdata {

namespace {

enum ControlId { idFile = 101, idSize, idPayments, idOperators, idCheck, idBackUp };

constexpr std::size_t kProblemsShown = 5;
constexpr std::uint64_t kKilobyte = 1024;

using com::DialogItem;

constexpr com::DialogControl controls[] = {
    {DialogItem::Group, -1, L"fraStore", L"Store", 7, 7, 296, 92},
    {DialogItem::Label, -1, L"lblFile", L"&File:", 16, 22, 52, 9},
    {DialogItem::ReadOnlyBox, idFile, L"txtFile", L"", 72, 19, 222, 14},
    {DialogItem::Label, -1, L"lblPaymentsName", L"Payments:", 16, 40, 52, 9},
    {DialogItem::Note, idPayments, L"lblPayments", L"", 72, 40, 222, 9},
    {DialogItem::Label, -1, L"lblOperatorsName", L"Operators:", 16, 53, 52, 9},
    {DialogItem::Note, idOperators, L"lblOperators", L"", 72, 53, 222, 9},
    {DialogItem::Label, -1, L"lblSizeName", L"Size:", 16, 66, 52, 9},
    {DialogItem::Note, idSize, L"lblSize", L"", 72, 66, 222, 9},
    {DialogItem::Button, idCheck, L"cmdCheck", L"&Check", 72, 79, 62, 15},
    {DialogItem::Button, idBackUp, L"cmdBackUp", L"&Back Up...", 139, 79, 62, 15},
    {DialogItem::DefaultButton, IDOK, L"cmdClose", L"Close", 251, 106, 52, 15},
};

constexpr com::DialogLayout layout{L"frmHostData", L"Host Data Settings", 310, 128, controls};

class Hourglass {
public:
    Hourglass() : before_(SetCursor(LoadCursor(nullptr, IDC_WAIT))) {}
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
    ~Hourglass() { SetCursor(before_); }

private:
    HCURSOR before_;
};

// With the separators of the person's own country.
std::wstring numberText(std::uint64_t value) {
    std::wstring digits = std::to_wstring(value);
    wchar_t separator[8] = {};
    if (GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STHOUSAND, separator, 8) > 1)
        for (std::size_t at = digits.size(); at > 3; at -= 3)
            digits.insert(at - 3, separator);
    return digits;
}

std::wstring sizeText(std::uint64_t bytes) {
    return numberText((bytes + kKilobyte - 1) / kKilobyte) + L" KB";
}

std::wstring todaysName() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    wchar_t name[64];
    swprintf(name, std::size(name), L"hostdata-%04u-%02u-%02u.db", now.wYear, now.wMonth, now.wDay);
    return name;
}

std::wstring documentsFolder() {
    wchar_t folder[MAX_PATH] = {};
    SHGetFolderPathW(nullptr, CSIDL_PERSONAL, nullptr, SHGFP_TYPE_CURRENT, folder);
    return folder;
}

std::optional<std::wstring> askForCopy(HWND owner) {
    wchar_t path[1024] = {};
    todaysName().copy(path, std::size(path) - 1);
    const std::wstring folder = documentsFolder();
    OPENFILENAMEW question{};
    question.lStructSize = sizeof question;
    question.hwndOwner = owner;
    question.lpstrFilter = L"Host data (*.db)\0*.db\0All files\0*.*\0";
    question.lpstrFile = path;
    question.nMaxFile = static_cast<DWORD>(std::size(path));
    question.lpstrInitialDir = folder.c_str();
    question.lpstrTitle = L"Back Up Host Data";
    question.lpstrDefExt = L"db";
    question.Flags =
        OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_NOCHANGEDIR | OFN_HIDEREADONLY | OFN_EXPLORER;
    if (!GetSaveFileNameW(&question))
        return std::nullopt;
    return path;
}

std::wstring damageText(const StoreCheck& check) {
    std::wstring text = L"The host data file is damaged. Restore it from the latest backup "
                        L"copy.\n\nWhat was found:";
    const std::size_t shown = std::min(check.problems.size(), kProblemsShown);
    for (std::size_t i = 0; i < shown; ++i)
        text += L"\n" + wide(check.problems[i]);
    if (check.problems.size() > shown)
        text += L"\nand " + std::to_wstring(check.problems.size() - shown) + L" more.";
    return text;
}

} // namespace

HostDataDialog::HostDataDialog(std::string storePath)
    : ModalDialog(layout), storePath_(std::move(storePath)) {}

template <class Work>
void HostDataDialog::attempt(Work&& work) {
    try {
        std::forward<Work>(work)();
    } catch (const HostDataError& error) {
        tell(wide(error.what()), MB_ICONEXCLAMATION);
    }
}

void HostDataDialog::onShow() {
    setWideText(idFile, wide(storePath_));
    showFacts();
    focus(idCheck);
}

void HostDataDialog::showFacts() {
    const Hourglass hourglass;
    try {
        const StoreFacts facts = storeFacts(storePath_);
        setWideText(idPayments, numberText(static_cast<std::uint64_t>(facts.payments)));
        setWideText(idOperators, numberText(static_cast<std::uint64_t>(facts.operators)));
        setWideText(idSize, facts.exists ? sizeText(facts.bytes) : L"The file is not there yet.");
    } catch (const HostDataError&) {
        for (const int id : {idPayments, idOperators, idSize})
            setWideText(id, L"Not readable. Press \"Check\" to find out why.");
    }
}

void HostDataDialog::onCommand(int id, int notification) {
    if (notification != BN_CLICKED)
        return;
    if (id == idCheck)
        attempt([this] { check(); });
    else if (id == idBackUp)
        attempt([this] { backUp(); });
}

void HostDataDialog::check() {
    const StoreCheck found = [this] {
        const Hourglass hourglass;
        return checkStore(storePath_);
    }();
    if (found.sound())
        tell(L"The host data file is sound. Every page, index and reference in it was read.",
             MB_ICONINFORMATION);
    else
        tell(damageText(found), MB_ICONEXCLAMATION);
    showFacts();
}

void HostDataDialog::backUp() {
    const std::optional<std::wstring> target = askForCopy(window());
    if (!target)
        return;
    {
        const Hourglass hourglass;
        backUpStore(storePath_, utf8(*target));
    }
    tell(L"The copy was made and checked:\n\n" + *target, MB_ICONINFORMATION);
}

void HostDataDialog::setWideText(int id, const std::wstring& text) {
    SetDlgItemTextW(window(), id, text.c_str());
}

void HostDataDialog::tell(const std::wstring& message, UINT icon) {
    MessageBoxExW(window(), message.c_str(), layout.caption, MB_OK | icon, com::kBoxLanguage);
}

} // namespace tollvane::hostdata
