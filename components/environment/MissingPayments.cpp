#include "components/environment/MissingPayments.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

namespace tollvane::environment {

namespace {

using Text = std::wstring_view;
// Transaction and amount.
using PaymentKey = std::pair<Text, std::int64_t>;

constexpr std::size_t approvedColumns = 6;
constexpr std::size_t storedColumns = 2;
constexpr std::int32_t comparedDays = 7;
constexpr std::ptrdiff_t mostStored = 50'000; // that the host data server lists

// Takes the text up to the mark off the front.
Text take(Text& text, wchar_t mark) {
    const std::size_t end = text.find(mark);
    const Text taken = text.substr(0, end);
    text.remove_prefix(end == Text::npos ? text.size() : end + 1);
    return taken;
}

std::vector<Text> columnsOf(Text line) {
    std::vector<Text> columns;
    while (!line.empty())
        columns.push_back(take(line, L'\t'));
    return columns;
}

std::optional<std::int64_t> wholeNumber(Text text) {
    constexpr std::size_t longest = 19;
    const bool negative = !text.empty() && text.front() == L'-';
    if (negative)
        text.remove_prefix(1);
    if (text.empty() || text.size() >= longest)
        return std::nullopt;
    std::int64_t value = 0;
    for (const wchar_t digit : text) {
        if (digit < L'0' || digit > L'9')
            return std::nullopt;
        value = value * 10 + (digit - L'0');
    }
    return negative ? -value : value;
}

std::set<PaymentKey> keysOf(Text stored) {
    std::set<PaymentKey> keys;
    while (!stored.empty()) {
        const std::vector<Text> columns = columnsOf(take(stored, L'\n'));
        const auto amount =
            columns.size() == storedColumns ? wholeNumber(columns[1]) : std::nullopt;
        if (amount)
            keys.emplace(columns[0], *amount);
    }
    return keys;
}

} // namespace

std::vector<MissingPayment> missingPayments(Text approved, Text stored) {
    const std::set<PaymentKey> keys = keysOf(stored);
    std::vector<MissingPayment> missing;
    while (!approved.empty()) {
        const std::vector<Text> columns = columnsOf(take(approved, L'\n'));
        const auto amount =
            columns.size() == approvedColumns ? wholeNumber(columns[1]) : std::nullopt;
        if (!amount || columns[0].empty() || keys.contains({columns[0], *amount}))
            continue;
        missing.push_back({std::wstring(columns[0]), *amount, std::wstring(columns[2]),
                           std::wstring(columns[3]), std::wstring(columns[4]),
                           std::wstring(columns[5])});
    }
    return missing;
}

std::vector<MissingPayment> missingOfTheWeek(const ListOfDays& approved, const ListOfDays& stored) {
    const std::wstring paid = approved(comparedDays);
    if (paid.empty())
        return {};
    // The two clocks may differ: a day more of what is stored.
    const std::wstring records = stored(comparedDays + 1);
    if (std::count(records.begin(), records.end(), L'\n') >= mostStored)
        return {}; // what is not on this list may be stored all the same
    return missingPayments(paid, records);
}

std::vector<RecordValue> recordOf(const MissingPayment& payment) {
    std::vector<RecordValue> record;
    if (!payment.lastFour.empty())
        record.push_back({L"Account", L"****" + payment.lastFour});
    record.push_back({L"Amount", payment.amount});
    record.push_back({L"Approval", payment.type == L"VOID" ? L"VOID" : payment.approval});
    record.push_back({L"PaidBy", L"Charge"});
    record.push_back({L"TransID", payment.transaction});
    return record;
}

} // namespace tollvane::environment
