#include "components/logviewer/win/TotalsPanel.h"

#include "components/common/ControlName.h"
#include "components/logviewer/win/Pixels.h"

#include <commctrl.h>

#include <optional>
#include <string>

namespace tollvane::logviewer {

namespace {

constexpr int rowHeight = 19;
constexpr int firstWidth = 60;
constexpr int width = 190;

constexpr const wchar_t* headings[] = {L"", L"Charges", L"Refunds", L"Taken back by voids", L"Net"};
constexpr const wchar_t* names[3][5] = {
    {L"", L"", L"", L"", L""},
    {L"", L"lblLiveCharges", L"lblLiveRefunds", L"lblLiveVoids", L"lblLiveNet"},
    {L"", L"lblTestCharges", L"lblTestRefunds", L"lblTestVoids", L"lblTestNet"},
};

// As the operator's own country writes numbers, without a change of their value.
std::wstring localText(std::int64_t scaled) {
    const std::string plain = amountText(scaled);
    std::wstring wide(plain.begin(), plain.end());
    wchar_t decimal[8] = L".";
    wchar_t group[8] = L",";
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, decimal, 8);
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STHOUSAND, group, 8);
    NUMBERFMTW format{};
    format.NumDigits = static_cast<UINT>(wide.size() - wide.find(L'.') - 1);
    format.LeadingZero = 1;
    format.Grouping = 3;
    format.lpDecimalSep = decimal;
    format.lpThousandSep = group;
    format.NegativeOrder = 1;
    wchar_t text[64] = {};
    if (!GetNumberFormatW(LOCALE_USER_DEFAULT, 0, wide.c_str(), &format, text, 64))
        return wide;
    return text;
}

std::wstring sumText(const std::optional<std::int64_t>& sum) {
    return sum ? localText(*sum) : L"too large";
}

std::wstring tallyText(const Tally& tally) {
    return sumText(tally.sum.value()) + L"  (" + std::to_wstring(tally.count) + L")";
}

} // namespace

void TotalsPanel::create(HWND parent) {
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            const DWORD side = column == 0 ? SS_LEFT : SS_RIGHT;
            cell_[row][column] =
                CreateWindowExW(0, WC_STATICW, row == 0 ? headings[column] : L"",
                                WS_CHILD | WS_VISIBLE | SS_NOPREFIX | side, 0, 0, 0, 0, parent,
                                nullptr, GetModuleHandleW(nullptr), nullptr);
            com::setControlName(cell_[row][column], names[row][column]);
        }
    }
    set(1, 0, L"Live");
    set(2, 0, L"Test");
}

void TotalsPanel::setFont(HFONT font) {
    for (const auto& row : cell_)
        for (const HWND cell : row)
            SendMessageW(cell, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

int TotalsPanel::height(UINT dpi) noexcept {
    return pixels(rows * rowHeight, dpi);
}

void TotalsPanel::layOut(int left, int top, UINT dpi) {
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            const int x = column == 0 ? 0 : firstWidth + (column - 1) * width;
            MoveWindow(cell_[row][column], left + pixels(x, dpi),
                       top + pixels(row * rowHeight, dpi),
                       pixels(column == 0 ? firstWidth : width, dpi), pixels(rowHeight, dpi), TRUE);
        }
    }
}

void TotalsPanel::set(int row, int column, const wchar_t* text) {
    wchar_t before[128] = {};
    GetWindowTextW(cell_[row][column], before, 128);
    if (std::wstring_view(before) != text)
        SetWindowTextW(cell_[row][column], text);
}

void TotalsPanel::showMode(int row, const ModeTotals& totals) {
    set(row, 1, tallyText(totals.charges).c_str());
    set(row, 2, tallyText(totals.refunds).c_str());
    set(row, 3, tallyText(totals.voids).c_str());
    set(row, 4, sumText(totals.net()).c_str());
}

void TotalsPanel::show(const LogTotals& totals) {
    showMode(1, totals.live);
    showMode(2, totals.test);
}

void TotalsPanel::showNothing() {
    for (int row = 1; row < rows; ++row)
        for (int column = 1; column < columns; ++column)
            set(row, column, L"");
}

} // namespace tollvane::logviewer
