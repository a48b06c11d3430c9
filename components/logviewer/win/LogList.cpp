#include "components/logviewer/win/LogList.h"

#include "components/common/ControlName.h"
#include "components/logviewer/win/Pixels.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace tollvane::logviewer {

namespace {

struct Heading {
    const wchar_t* caption;
    int width;
    bool toTheRight;
};

// In the order of the columns.
constexpr Heading headings[] = {
    {L"Date", 84, false},     {L"Time", 68, false},        {L"Operator", 128, false},
    {L"Type", 90, false},     {L"Mode", 46, false},        {L"Amount", 88, true},
    {L"Card", 74, false},     {L"Result", 82, false},      {L"Codes", 60, false},
    {L"Approval", 68, false}, {L"Transaction", 92, false}, {L"Refers to", 92, false},
    {L"Text", 440, false},
};

constexpr COLORREF damagedColour = RGB(176, 0, 0);

// The texts of the rows that are selected; the clipboard takes the memory over.
void putOnClipboard(HWND owner, const std::wstring& text) {
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    if (memory == nullptr)
        return;
    std::memcpy(GlobalLock(memory), text.c_str(), bytes);
    GlobalUnlock(memory);
    bool taken = false;
    if (OpenClipboard(owner)) {
        EmptyClipboard();
        taken = SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
        CloseClipboard();
    }
    if (!taken)
        GlobalFree(memory);
}

} // namespace

void LogList::create(HWND parent, int id) {
    window_ = CreateWindowExW(WS_EX_CLIENTEDGE, WC_LISTVIEWW, L"",
                              WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA |
                                  LVS_SHOWSELALWAYS | LVS_NOSORTHEADER,
                              0, 0, 0, 0, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                              GetModuleHandleW(nullptr), nullptr);
    com::setControlName(window_, L"lvwLog");
    ListView_SetExtendedListViewStyle(window_, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER |
                                                   LVS_EX_LABELTIP | LVS_EX_HEADERDRAGDROP);
    for (int place = 0; place < columnCount; ++place) {
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_FMT | LVCF_SUBITEM;
        column.fmt = headings[place].toTheRight ? LVCFMT_RIGHT : LVCFMT_LEFT;
        column.pszText = const_cast<wchar_t*>(headings[place].caption);
        column.iSubItem = place;
        SendMessageW(window_, LVM_INSERTCOLUMNW, static_cast<WPARAM>(place),
                     reinterpret_cast<LPARAM>(&column));
    }
}

// Columns keep the widths that the operator gave them, in proportion.
void LogList::setFont(HFONT font, UINT dpi) {
    SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    for (int place = 0; place < columnCount; ++place) {
        const int width = dpi_ == 0 ? pixels(headings[place].width, dpi)
                                    : MulDiv(ListView_GetColumnWidth(window_, place),
                                             static_cast<int>(dpi), static_cast<int>(dpi_));
        ListView_SetColumnWidth(window_, place, width);
    }
    dpi_ = dpi;
}

void LogList::setCount(std::size_t count, bool hasOnlyGrown) {
    const DWORD kept = hasOnlyGrown ? LVSICF_NOINVALIDATEALL : 0;
    ListView_SetItemCountEx(window_, static_cast<int>(count), LVSICF_NOSCROLL | kept);
}

void LogList::goToEnd() {
    ListView_SetItemState(window_, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    const int last = ListView_GetItemCount(window_) - 1;
    if (last < 0)
        return;
    ListView_SetItemState(window_, last, LVIS_SELECTED | LVIS_FOCUSED,
                          LVIS_SELECTED | LVIS_FOCUSED);
    ListView_EnsureVisible(window_, last, FALSE);
}

void LogList::selectAll() {
    ListView_SetItemState(window_, -1, LVIS_SELECTED, LVIS_SELECTED);
}

std::size_t LogList::selectedCount() const {
    return ListView_GetSelectedCount(window_);
}

std::size_t LogList::copy(LogView& view) const {
    std::wstring text;
    std::size_t count = 0;
    int place = -1;
    while (count < mostCopied &&
           (place = ListView_GetNextItem(window_, place, LVNI_SELECTED)) >= 0) {
        const RowTexts& texts = view.texts(static_cast<std::size_t>(place));
        for (int column = 0; column < columnCount; ++column) {
            text += column == 0 ? L"" : L"\t";
            text += texts[static_cast<std::size_t>(column)];
        }
        text += L"\r\n";
        ++count;
    }
    if (count != 0)
        putOnClipboard(GetParent(window_), text);
    return count;
}

LRESULT LogList::answer(const NMHDR& question, LogView& view) const {
    auto& any = const_cast<NMHDR&>(question);
    if (question.code == static_cast<UINT>(LVN_GETDISPINFOW))
        giveText(reinterpret_cast<NMLVDISPINFOW&>(any), view);
    if (question.code == static_cast<UINT>(NM_CUSTOMDRAW))
        return colour(reinterpret_cast<NMLVCUSTOMDRAW&>(any), view);
    return 0;
}

void LogList::giveText(NMLVDISPINFOW& question, LogView& view) {
    LVITEMW& item = question.item;
    if (!(item.mask & LVIF_TEXT) || item.cchTextMax <= 0 || item.iSubItem < 0 ||
        item.iSubItem >= columnCount)
        return;
    const RowTexts& texts = view.texts(static_cast<std::size_t>(item.iItem));
    const std::wstring& text = texts[static_cast<std::size_t>(item.iSubItem)];
    const std::size_t length = std::min(text.size(), static_cast<std::size_t>(item.cchTextMax) - 1);
    text.copy(item.pszText, length);
    item.pszText[length] = L'\0';
}

LRESULT LogList::colour(NMLVCUSTOMDRAW& drawing, const LogView& view) {
    if (drawing.nmcd.dwDrawStage == CDDS_PREPAINT)
        return CDRF_NOTIFYITEMDRAW;
    if (drawing.nmcd.dwDrawStage != CDDS_ITEMPREPAINT)
        return CDRF_DODEFAULT;
    const auto row = view.row(static_cast<std::size_t>(drawing.nmcd.dwItemSpec));
    if (row && row->kind == LineKind::Damaged)
        drawing.clrText = damagedColour;
    return CDRF_DODEFAULT;
}

} // namespace tollvane::logviewer
