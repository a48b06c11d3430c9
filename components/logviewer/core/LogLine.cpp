#include "components/logviewer/core/LogLine.h"

#include "components/logviewer/core/LogAmount.h"
#include "platform/Checksum.h"

#include <array>
#include <optional>

namespace tollvane::logviewer {

namespace {

constexpr std::size_t operationColumns = 13;
constexpr std::size_t signInColumns = 4;

struct Columns {
    std::array<std::string_view, operationColumns> texts;
    std::size_t count = 0; // more than there is room for: not a line of ours
};

Columns columnsOf(std::string_view line) {
    Columns columns;
    std::size_t start = 0;
    while (start < line.size()) {
        const std::size_t end = line.find("  ", start);
        if (columns.count < operationColumns)
            columns.texts[columns.count] = line.substr(start, end - start);
        ++columns.count;
        if (end == std::string_view::npos)
            break;
        start = line.find_first_not_of(' ', end);
    }
    return columns;
}

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

// A number of two digits, or nothing.
std::optional<int> pair(std::string_view text, std::size_t at) {
    if (!isDigit(text[at]) || !isDigit(text[at + 1]))
        return std::nullopt;
    return (text[at] - '0') * 10 + (text[at + 1] - '0');
}

bool within(const std::optional<int>& number, int least, int most) {
    return number && *number >= least && *number <= most;
}

// "2026-11-21 09:05:03"
bool takeMoment(std::string_view text, LogLine& line) {
    constexpr std::string_view shape = "####-##-## ##:##:##";
    if (text.size() != shape.size())
        return false;
    for (std::size_t i = 0; i < shape.size(); ++i)
        if (shape[i] != '#' && text[i] != shape[i])
            return false;
    const auto century = pair(text, 0);
    const auto year = pair(text, 2);
    const auto month = pair(text, 5);
    const auto day = pair(text, 8);
    if (!century || !year || !within(month, 1, 12) || !within(day, 1, 31) ||
        !within(pair(text, 11), 0, 23) || !within(pair(text, 14), 0, 59) ||
        !within(pair(text, 17), 0, 60))
        return false;
    line.day = (*century * 100 + *year) * 10000 + *month * 100 + *day;
    line.date = text.substr(0, 10);
    line.time = text.substr(11);
    return true;
}

template <class Value>
struct Word {
    std::string_view text;
    Value value;
};

constexpr Word<LineKind> kinds[] = {{"CHARGE", LineKind::Charge},
                                    {"VOICE", LineKind::Voice},
                                    {"REFUND", LineKind::Refund},
                                    {"VOID", LineKind::Void}};
constexpr Word<LineResult> results[] = {{"APPROVED", LineResult::Approved},
                                        {"DECLINED", LineResult::Declined},
                                        {"ERROR", LineResult::Error},
                                        {"HELD", LineResult::Held},
                                        {"UNKNOWN", LineResult::Unknown}};
constexpr Word<LineMode> modes[] = {{"TEST", LineMode::Test}, {"LIVE", LineMode::Live}};

template <class Value, std::size_t count>
bool take(const Word<Value> (&words)[count], std::string_view text, Value& value) {
    for (const Word<Value>& word : words) {
        if (word.text == text) {
            value = word.value;
            return true;
        }
    }
    return false;
}

bool takeAmount(std::string_view text, LogLine& line) {
    const std::optional<std::int64_t> amount = amountFromText(text);
    line.amount = amount.value_or(0);
    line.amountText = text;
    return amount.has_value();
}

bool isKey(std::string_view text) {
    return text.size() > 2 && text.front() == '[' && text.back() == ']';
}

std::string_view filled(std::string_view text) {
    return text == "-" ? std::string_view() : text;
}

constexpr std::string_view checkMark = "  #";

// The line without its checksum; the whole line when it carries none. Nothing when it does not fit.
std::optional<std::string_view> withoutCheck(std::string_view line) {
    const std::size_t size = checkMark.size() + kChecksumDigits;
    if (line.size() < size || line.substr(line.size() - size, checkMark.size()) != checkMark)
        return line;
    const std::string_view checked = line.substr(0, line.size() - size);
    if (line.substr(line.size() - kChecksumDigits) != checksumText(checked))
        return std::nullopt;
    return checked;
}

bool takeSignIn(const Columns& columns, LogLine& line) {
    if (columns.count != signInColumns || columns.texts[2] != "SIGN-IN")
        return false;
    line.kind = LineKind::SignIn;
    line.text = filled(columns.texts[3]);
    return true;
}

bool takeOperation(const Columns& columns, LogLine& line) {
    const auto& texts = columns.texts;
    if (columns.count != operationColumns || !take(kinds, texts[2], line.kind) ||
        !take(modes, texts[3], line.mode) || !takeAmount(texts[4], line) ||
        !take(results, texts[6], line.result) || !isKey(texts[11]))
        return false;
    line.card = filled(texts[5]);
    line.codes = filled(texts[7]);
    line.approval = filled(texts[8]);
    line.transaction = filled(texts[9]);
    line.reference = filled(texts[10]);
    line.text = filled(texts[12]);
    return true;
}

} // namespace

LogLine parseLine(std::string_view line) {
    if (line.find_first_not_of(" \r") == std::string_view::npos) {
        LogLine blank;
        blank.kind = LineKind::Blank;
        return blank;
    }
    LogLine found;
    const auto content = withoutCheck(line);
    const Columns columns = columnsOf(content.value_or(std::string_view()));
    found.isChecked = content && content->size() < line.size();
    if (takeMoment(columns.texts[0], found) &&
        (takeOperation(columns, found) || takeSignIn(columns, found))) {
        found.operatorName = filled(columns.texts[1]);
        return found;
    }
    LogLine damaged;
    damaged.text = line;
    return damaged;
}

} // namespace tollvane::logviewer
