#include "platform/LocaleStyle.h"

#include "platform/Error.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

namespace tollvane {

namespace {

/// What the system puts in the place of a character.
constexpr std::string_view kNotInTheCodePage = "?";

/// The item's text; nothing when the locale has no such item or it cannot be read.
std::optional<std::string> itemText(Locale& locale, std::uint32_t which, std::uint32_t item) {
    const int size = locale.info(which, item, nullptr, 0);
    if (size <= 0) {
        return std::nullopt;
    }
    std::string text(static_cast<std::size_t>(size), '\0');
    const int written = locale.info(which, item, text.data(), size);
    if (written <= 0) {
        return std::nullopt;
    }
    text.resize(static_cast<std::size_t>(written - 1));
    return text;
}

/// Only the item's absence keeps the fallback: a locale may well have an empty group separator.
void read(Locale& locale, std::uint32_t item, std::string& text) {
    if (auto found = itemText(locale, locale.userDefault(), item)) {
        text = std::move(*found);
    }
}

/// With a decimal sign that is not the locale's own, amounts would be read a hundredfold.
void readDecimalSign(Locale& locale, std::uint32_t item, std::string& sign) {
    auto found = itemText(locale, locale.userDefault(), item);
    if (!found) {
        throw Error(errornumber::invalidProcedureCall, "Locale", "The decimal sign cannot be read");
    }
    // Written as "?" where the code page lacks it: the key beside the digits has a plainer one.
    sign = *found == kNotInTheCodePage ? std::string(".") : std::move(*found);
}

/// Several locales part groups by a narrow blank that 8-bit code pages lack; the system hands out
/// "?" in its place, which no operator would take for a blank.
void readGroupSeparator(Locale& locale, std::uint32_t item, std::string& separator) {
    read(locale, item, separator);
    if (separator == kNotInTheCodePage) {
        separator = " ";
    }
}

void read(Locale& locale, std::uint32_t item, int& number) {
    std::string text;
    read(locale, item, text);
    int value = 0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), value);
    if (end.ec == std::errc() && value >= 0) {
        number = value;
    }
}

} // namespace

std::string localeText(Locale& locale, std::uint32_t which, std::uint32_t item) {
    return itemText(locale, which, item).value_or(std::string());
}

MoneyStyle moneyStyle(Locale& locale) {
    constexpr int kMostDigits = 9;
    MoneyStyle style;
    read(locale, localeitem::currencySymbol, style.currencySymbol);
    readDecimalSign(locale, localeitem::decimalSeparator, style.decimalSeparator);
    readGroupSeparator(locale, localeitem::groupSeparator, style.groupSeparator);
    readDecimalSign(locale, localeitem::moneyDecimal, style.moneyDecimal);
    readGroupSeparator(locale, localeitem::moneyGroup, style.moneyGroup);
    read(locale, localeitem::moneyGrouping, style.moneyGrouping);
    read(locale, localeitem::negativeSign, style.negativeSign);
    read(locale, localeitem::currencyDigits, style.digits);
    read(locale, localeitem::positiveCurrencyOrder, style.positiveOrder);
    read(locale, localeitem::negativeCurrencyOrder, style.negativeOrder);
    style.digits = std::min(style.digits, kMostDigits);
    return style;
}

DateOrder dateOrder(Locale& locale) {
    int order = 0;
    read(locale, localeitem::dateOrder, order);
    return order == 1   ? DateOrder::dayMonthYear
           : order == 2 ? DateOrder::yearMonthDay
                        : DateOrder::monthDayYear;
}

} // namespace tollvane
