#include "components/about/AboutDialog.h"

#include "components/common/ModuleLock.h"

#include <utility>

namespace tollvane::about {

namespace {

enum ControlId { idIcon = 101, idName, idVersion, idComponents };

// In percent of the dialog's font.
constexpr int nameSize = 180;

using com::DialogItem;

constexpr com::DialogControl shortControls[] = {
    {DialogItem::Icon, idIcon, L"imgIcon", L"", 12, 12, 21, 20},
    {DialogItem::Note, idName, L"lblName", L"", 44, 9, 194, 18},
    {DialogItem::Note, idVersion, L"lblVersion", L"", 44, 29, 194, 9},
    {DialogItem::Note, -1, L"lblPurpose", L"Credit card payments at the counter.", 44, 41, 194, 9},
    {DialogItem::DefaultButton, IDOK, L"cmdOK", L"OK", 193, 61, 52, 15},
};

constexpr com::DialogControl controls[] = {
    {DialogItem::Icon, idIcon, L"imgIcon", L"", 12, 12, 21, 20},
    {DialogItem::Note, idName, L"lblName", L"", 44, 9, 194, 18},
    {DialogItem::Note, idVersion, L"lblVersion", L"", 44, 29, 194, 9},
    {DialogItem::Note, -1, L"lblPurpose", L"Credit card payments at the counter.", 44, 41, 194, 9},
    {DialogItem::Label, -1, L"lblComponents", L"&Components:", 7, 61, 238, 9},
    {DialogItem::TableList, idComponents, L"lstComponents", L"", 7, 72, 238, 62},
    {DialogItem::DefaultButton, IDOK, L"cmdOK", L"OK", 193, 141, 52, 15},
};

constexpr const wchar_t* caption = L"About Tollvane";
constexpr com::DialogLayout shortLayout{L"frmAbout", caption, 252, 83, shortControls};
constexpr com::DialogLayout layout{L"frmAbout", caption, 252, 163, controls};

// Where the columns of the list begin, in the units of the table above.
constexpr int columns[] = {118, 194};

} // namespace

AboutDialog::AboutDialog(Product product, bool withComponents)
    : ModalDialog(withComponents ? layout : shortLayout), product_(std::move(product)),
      withComponents_(withComponents) {}

void AboutDialog::onShow() {
    showIcon();
    showName();
    if (withComponents_)
        showComponents();
    focus(IDOK);
}

void AboutDialog::showIcon() {
    RECT room{};
    GetClientRect(item(idIcon), &room);
    icon_.reset(static_cast<HICON>(LoadImageW(com::thisModule(), MAKEINTRESOURCEW(1), IMAGE_ICON,
                                              room.bottom, room.bottom, LR_DEFAULTCOLOR)));
    SendMessageW(item(idIcon), STM_SETICON, reinterpret_cast<WPARAM>(icon_.get()), 0);
}

void AboutDialog::showName() {
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(window(), WM_GETFONT, 0, 0)), sizeof font,
               &font);
    font.lfHeight = MulDiv(font.lfHeight, nameSize, 100);
    nameFont_.reset(CreateFontIndirectW(&font));
    SendMessageW(item(idName), WM_SETFONT, reinterpret_cast<WPARAM>(nameFont_.get()), FALSE);
    SetDlgItemTextW(window(), idName, product_.name.c_str());
    if (!product_.version.empty())
        SetDlgItemTextW(window(), idVersion, (L"Version " + product_.version).c_str());
}

void AboutDialog::showComponents() {
    const HWND list = item(idComponents);
    SendMessageW(list, LB_SETTABSTOPS, std::size(columns), reinterpret_cast<LPARAM>(columns));
    for (const ProductFile& file : product_.components) {
        const std::wstring row = file.description + L"\t" + file.fileName + L"\t" + file.version;
        SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.c_str()));
    }
}

} // namespace tollvane::about
