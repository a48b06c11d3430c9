#include "components/logviewer/win/RowTexts.h"

#include "components/common/ComText.h"

namespace tollvane::logviewer {

namespace {

// A line of ours is much shorter; of a damaged one this much is enough to see.
constexpr std::size_t mostBytes = 2000;

} // namespace

const wchar_t* kindText(LineKind kind) noexcept {
    switch (kind) {
    case LineKind::Charge: return L"Charge";
    case LineKind::Voice: return L"Voice charge";
    case LineKind::Refund: return L"Refund";
    case LineKind::Void: return L"Void";
    case LineKind::SignIn: return L"Sign-in";
    case LineKind::Damaged: return L"Damaged line";
    case LineKind::Blank: break;
    }
    return L"";
}

const wchar_t* resultText(LineResult result) noexcept {
    switch (result) {
    case LineResult::Approved: return L"Approved";
    case LineResult::Declined: return L"Declined";
    case LineResult::Error: return L"Error";
    case LineResult::Held: return L"Held";
    case LineResult::Unknown: return L"Unknown yet";
    case LineResult::None: break;
    }
    return L"";
}

const wchar_t* modeText(LineMode mode) noexcept {
    switch (mode) {
    case LineMode::Test: return L"Test";
    case LineMode::Live: return L"Live";
    case LineMode::None: break;
    }
    return L"";
}

std::wstring wideText(std::string_view text) {
    std::wstring wide = com::widen(text);
    for (wchar_t& character : wide)
        if (character < L' ')
            character = L' ';
    return wide;
}

RowTexts rowTexts(const std::string& text, LineKind kind) {
    LogLine line;
    line.text = text;
    if (kind != LineKind::Damaged)
        line = parseLine(text);
    RowTexts texts;
    texts[columnDate] = wideText(line.date);
    texts[columnTime] = wideText(line.time);
    texts[columnOperator] = wideText(line.operatorName);
    texts[columnType] = kindText(line.kind);
    texts[columnMode] = modeText(line.mode);
    texts[columnAmount] = wideText(line.amountText);
    texts[columnCard] = wideText(line.card);
    texts[columnResult] = resultText(line.result);
    texts[columnCodes] = wideText(line.codes);
    texts[columnApproval] = wideText(line.approval);
    texts[columnTransaction] = wideText(line.transaction);
    texts[columnReference] = wideText(line.reference);
    texts[columnText] = wideText(line.text);
    return texts;
}

const RowTexts& RowCache::texts(const LogReader& reader, std::uint32_t number, const LogRow& row) {
    Entry& entry = entries_[number % places];
    if (!entry.filled || entry.number != number || entry.length != row.length) {
        entry.texts = rowTexts(reader.text(row, mostBytes), row.kind);
        entry.number = number;
        entry.length = row.length;
        entry.filled = true;
    }
    return entry.texts;
}

void RowCache::clear() {
    for (Entry& entry : entries_)
        entry.filled = false;
}

} // namespace tollvane::logviewer
