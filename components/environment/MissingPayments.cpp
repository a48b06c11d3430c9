#include "components/environment/MissingPayments.h"

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

} // namespace tollvane::environment
