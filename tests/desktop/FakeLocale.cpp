#include "tests/desktop/FakeLocale.h"

#include "tests/desktop/FaultPlan.h"

#include <cstring>

namespace tollvane::test {

namespace {

constexpr std::uint32_t kSystemDefault = 0x0800;
constexpr std::uint32_t kUserDefault = 0x0400;
constexpr std::uint32_t kNeutral = 0;
/// A flag of the item number: take the locale's own value, not the user's change of it.
constexpr std::uint32_t kNoUserOverride = 0x8000'0000;

/// What tells one locale's money and dates from another's.
struct Row {
    std::uint32_t locale;
    const char* symbol;
    const char* international;
    const char* decimal;
    const char* group;
    const char* grouping;
    const char* moneyDigits;
    const char* positiveOrder;
    const char* negativeOrder;
    const char* dateSeparator;
    const char* shortDate;
    const char* dateOrder;
};

// 8-bit texts of the western code page: \x80 euro, \xA3 pound, \xA5 yen.
constexpr Row kRows[] = {
    {localeid::unitedStates, "$", "USD", ".", ",", "3;0", "2", "0", "0", "/", "M/d/yyyy", "0"},
    {localeid::germany, "\x80", "EUR", ",", ".", "3;0", "2", "3", "8", ".", "dd.MM.yyyy", "1"},
    {localeid::japan, "\xA5", "JPY", ".", ",", "3;0", "0", "0", "1", "/", "yyyy/MM/dd", "2"},
    {localeid::switzerland, "CHF", "CHF", ".", "'", "3;0", "2", "2", "2", ".", "dd.MM.yyyy", "1"},
    {localeid::unitedKingdom, "\xA3", "GBP", ".", ",", "3;0", "2", "0", "1", "/", "dd/MM/yyyy",
     "1"},
    {localeid::india, "Rs.", "INR", ".", ",", "3;2;0", "2", "2", "12", "-", "dd-MM-yyyy", "1"},
    {localeid::kuwait, "KD", "KWD", ".", ",", "3;0", "3", "2", "9", "/", "dd/MM/yyyy", "1"},
};

std::map<std::uint32_t, std::string> itemsOf(const Row& row) {
    using namespace localeitem;
    return {{decimal, row.decimal},
            {thousand, row.group},
            {grouping, row.grouping},
            {digits, "2"},
            {leadingZero, "1"},
            {currency, row.symbol},
            {internationalSymbol, row.international},
            {moneyDecimal, row.decimal},
            {moneyThousand, row.group},
            {moneyGrouping, row.grouping},
            {moneyDigits, row.moneyDigits},
            {internationalMoneyDigits, row.moneyDigits},
            {positiveOrder, row.positiveOrder},
            {negativeOrder, row.negativeOrder},
            {dateSeparator, row.dateSeparator},
            {timeSeparator, ":"},
            {shortDate, row.shortDate},
            {longDate, "dddd, MMMM d, yyyy"},
            {dateOrder, row.dateOrder},
            {positiveSign, ""},
            {negativeSign, "-"},
            {timeFormat, "h:mm:ss tt"}};
}

} // namespace

FakeLocale::FakeLocale(FaultPlan& faults) : faults_(faults) {
    for (const Row& row : kRows) {
        items_[row.locale] = itemsOf(row);
    }
}

int FakeLocale::info(std::uint32_t locale, std::uint32_t item, char* buffer, int size) {
    if (faults_.strikes(Port::locale, "info")) {
        return 0;
    }
    if (locale == kSystemDefault) {
        locale = system;
    } else if (locale == kUserDefault || locale == kNeutral) {
        locale = user;
    }
    const auto known = items_.find(locale);
    if (known == items_.end()) {
        return 0;
    }
    const auto value = known->second.find(item & ~kNoUserOverride);
    if (value == known->second.end()) {
        return 0;
    }
    const int needed = static_cast<int>(value->second.size()) + 1;
    if (size == 0) {
        return needed;
    }
    if (size < needed) {
        return 0;
    }
    std::memcpy(buffer, value->second.c_str(), static_cast<std::size_t>(needed));
    return needed;
}

} // namespace tollvane::test
