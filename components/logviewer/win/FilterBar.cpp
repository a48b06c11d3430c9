#include "components/logviewer/win/FilterBar.h"

#include "components/common/ComText.h"
#include "components/common/ControlName.h"
#include "components/logviewer/core/DayText.h"
#include "components/logviewer/win/Pixels.h"
#include "components/logviewer/win/RowTexts.h"

#include <commctrl.h>

#include <optional>
#include <string_view>

namespace tollvane::logviewer {

namespace {

enum Place { placeFrom, placeTo, placeType, placeOperator, placeResult, placeMode, placeClear };

constexpr int firstId = 201;
constexpr int gap = 8;
constexpr int labelHeight = 18;
constexpr int boxHeight = 24;
constexpr int longestList = 320;
constexpr WPARAM mostDayLetters = 12;
constexpr const wchar_t* dayForm = L"yyyy-mm-dd";

struct Design {
    const wchar_t* name;
    const wchar_t* caption;
    int width;
};

constexpr Design designs[] = {
    {L"txtFrom", L"&From", 104},         {L"txtTo", L"&To", 104},
    {L"cboType", L"T&ype", 112},         {L"cboOperator", L"&Operator", 160},
    {L"cboResult", L"&Result", 120},     {L"cboMode", L"&Mode", 110},
    {L"cmdClear", L"&Clear Filter", 96},
};

template <class Value>
struct Choice {
    const wchar_t* caption;
    std::optional<Value> value;
};

constexpr Choice<LineKind> typeChoices[] = {
    {L"All", std::nullopt},
    {L"Charge", LineKind::Charge},
    {L"Voice charge", LineKind::Voice},
    {L"Refund", LineKind::Refund},
    {L"Void", LineKind::Void},
    {L"Sign-in", LineKind::SignIn},
};
constexpr Choice<LineResult> resultChoices[] = {
    {L"All", std::nullopt},
    {L"Approved", LineResult::Approved},
    {L"Declined", LineResult::Declined},
    {L"Error", LineResult::Error},
    {L"Held", LineResult::Held},
    {L"Unknown yet", LineResult::Unknown},
};
constexpr const wchar_t* damagedChoice = L"Damaged lines";
constexpr Choice<LineMode> modeChoices[] = {
    {L"Test and live", std::nullopt}, {L"Live", LineMode::Live}, {L"Test", LineMode::Test}};

int chosen(HWND list) {
    return static_cast<int>(SendMessageW(list, CB_GETCURSEL, 0, 0));
}

void choose(HWND list, int place) {
    SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(place), 0);
}

void addText(HWND list, const wchar_t* text) {
    SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
}

template <class Value, std::size_t count>
std::optional<Value> valueOf(HWND list, const Choice<Value> (&choices)[count]) {
    const auto place = static_cast<std::size_t>(chosen(list));
    return place < count ? choices[place].value : std::nullopt;
}

std::string textOf(HWND box) {
    wchar_t text[32] = {};
    const int length = GetWindowTextW(box, text, static_cast<int>(std::size(text)));
    return com::narrow(std::wstring_view(text, static_cast<std::size_t>(length)));
}

} // namespace

HWND FilterBar::addBox(int place, const wchar_t* windowClass, const wchar_t* caption, DWORD style) {
    const HWND box = CreateWindowExW(
        0, windowClass, caption, WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, 0, 0, 0, 0, parent_,
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(firstId + place)), GetModuleHandleW(nullptr),
        nullptr);
    com::setControlName(box, designs[place].name);
    return box;
}

void FilterBar::create(HWND parent) {
    parent_ = parent;
    for (int place = 0; place < boxes; ++place) {
        if (place < labels)
            label_[place] =
                CreateWindowExW(0, WC_STATICW, designs[place].caption, WS_CHILD | WS_VISIBLE, 0, 0,
                                0, 0, parent_, nullptr, GetModuleHandleW(nullptr), nullptr);
        if (place <= placeTo)
            box_[place] = addBox(place, WC_EDITW, L"", WS_BORDER | ES_AUTOHSCROLL);
        else if (place == placeClear)
            box_[place] = addBox(place, WC_BUTTONW, designs[place].caption, BS_PUSHBUTTON);
        else
            box_[place] = addBox(place, WC_COMBOBOXW, L"", CBS_DROPDOWNLIST | WS_VSCROLL);
    }
    for (const int place : {placeFrom, placeTo}) {
        SendMessageW(box_[place], EM_SETLIMITTEXT, mostDayLetters, 0);
        SendMessageW(box_[place], EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(dayForm));
    }
    addChoices();
    clear();
}

void FilterBar::addChoices() {
    for (const auto& choice : typeChoices)
        addText(box_[placeType], choice.caption);
    for (const auto& choice : resultChoices)
        addText(box_[placeResult], choice.caption);
    addText(box_[placeResult], damagedChoice);
    for (const auto& choice : modeChoices)
        addText(box_[placeMode], choice.caption);
    addText(box_[placeOperator], L"All");
}

void FilterBar::setFont(HFONT font, UINT dpi) {
    for (const HWND label : label_)
        SendMessageW(label, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    for (const HWND box : box_)
        SendMessageW(box, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    for (int place = placeType; place <= placeMode; ++place)
        SendMessageW(box_[place], CB_SETITEMHEIGHT, static_cast<WPARAM>(-1),
                     pixels(boxHeight - 6, dpi));
}

int FilterBar::layOut(int left, int top, UINT dpi) {
    int x = left;
    const int boxTop = top + pixels(labelHeight, dpi);
    for (int place = 0; place < boxes; ++place) {
        const int width = pixels(designs[place].width, dpi);
        if (place < labels)
            MoveWindow(label_[place], x, top, width, pixels(labelHeight, dpi), TRUE);
        const bool isList = place >= placeType && place <= placeMode;
        MoveWindow(box_[place], x, boxTop, width, pixels(isList ? longestList : boxHeight, dpi),
                   TRUE);
        x += width + pixels(gap, dpi);
    }
    return pixels(labelHeight + boxHeight, dpi);
}

int FilterBar::leastWidth(UINT dpi) noexcept {
    int width = gap;
    for (const Design& design : designs)
        width += design.width + gap;
    return pixels(width, dpi);
}

bool FilterBar::setOperators(const std::vector<std::string>& names) {
    if (names.size() == operatorCount_)
        return true;
    const int before = chosen(box_[placeOperator]);
    // A log that was replaced has operators of its own.
    const bool grown = names.size() > operatorCount_;
    operatorCount_ = names.size();
    SendMessageW(box_[placeOperator], CB_RESETCONTENT, 0, 0);
    addText(box_[placeOperator], L"All");
    for (const std::string& name : names)
        addText(box_[placeOperator], name.empty() ? L"(nobody)" : wideText(name).c_str());
    choose(box_[placeOperator], grown ? before : 0);
    return grown || before <= 0;
}

LogFilter FilterBar::filter() const {
    LogFilter filter;
    filter.from = dayFromText(textOf(box_[placeFrom]), PeriodEnd::First);
    filter.to = dayFromText(textOf(box_[placeTo]), PeriodEnd::Last);
    filter.kind = valueOf(box_[placeType], typeChoices);
    filter.result = valueOf(box_[placeResult], resultChoices);
    filter.mode = valueOf(box_[placeMode], modeChoices);
    filter.damagedOnly = chosen(box_[placeResult]) == static_cast<int>(std::size(resultChoices));
    if (const int place = chosen(box_[placeOperator]); place > 0)
        filter.operatorId = static_cast<std::uint16_t>(place - 1);
    return filter;
}

void FilterBar::clear() {
    for (const int place : {placeFrom, placeTo})
        SetWindowTextW(box_[place], L"");
    for (int place = placeType; place <= placeMode; ++place)
        choose(box_[place], 0);
}

bool FilterBar::isChange(int id, int notification) const noexcept {
    const int place = id - firstId;
    if (place == placeFrom || place == placeTo)
        return notification == EN_CHANGE;
    return place >= placeType && place <= placeMode && notification == CBN_SELCHANGE;
}

bool FilterBar::hasBadDay() const {
    for (const int place : {placeFrom, placeTo}) {
        const std::string text = textOf(box_[place]);
        if (text.find_first_not_of(' ') != std::string::npos &&
            !dayFromText(text, PeriodEnd::First))
            return true;
    }
    return false;
}

bool FilterBar::isClear(int id, int notification) noexcept {
    return id == firstId + placeClear && notification == BN_CLICKED;
}

} // namespace tollvane::logviewer
