// Texts as amounts, numbers, dates and paths: read, written, and read again.

#include "app/CommonRoutines.h"
#include "components/charge/core/Failure.h"
#include "components/charge/core/GatewayMoney.h"
#include "components/logviewer/core/DayText.h"
#include "components/logviewer/core/LogAmount.h"
#include "platform/DateTime.h"
#include "platform/Error.h"
#include "platform/Variant.h"
#include "tests/fuzz/Script.h"

#include <array>
#include <charconv>
#include <cmath>
#include <optional>

namespace {

using namespace tollvane;
using test::require;
using test::Script;

constexpr std::array kSymbols{"$", "\x80", "CHF", "kr.", "R$", "Rs.", ""};
constexpr std::array kGroupings{"3;0", "3;2;0", "4;0", "0"};

/// Separators as locales have them: they differ from each other and from digits and signs.
MoneyStyle styleFrom(Script& script) {
    MoneyStyle style;
    style.currencySymbol = kSymbols[script.next() % kSymbols.size()];
    const std::size_t separators = script.next();
    style.decimalSeparator = separators % 2 == 0 ? "." : ",";
    const std::string narrow = style.decimalSeparator == "." ? "'" : "\xA0";
    const std::string wide = style.decimalSeparator == "." ? "," : ".";
    style.groupSeparator = separators % 4 < 2 ? wide : narrow;
    style.moneyDecimal = style.decimalSeparator;
    style.moneyGroup = style.groupSeparator;
    style.moneyGrouping = kGroupings[script.next() % kGroupings.size()];
    const std::size_t orders = script.next();
    style.positiveOrder = static_cast<int>(orders % 4);
    style.negativeOrder = static_cast<int>(orders / 4 % 16);
    return style;
}

/// Nothing when it raises what a text that is no number may raise.
template <class Conversion>
auto converted(Conversion&& conversion) -> std::optional<decltype(conversion())> {
    try {
        return conversion();
    } catch (const Error& error) {
        require(error.number() == 13 || error.number() == 6, "a mismatch or an overflow");
    } catch (const com::ComponentError& error) {
        require(error.number() == charge::failurenumber::notAnAmount ||
                    error.number() == charge::failurenumber::amountTooLarge,
                "the component's mismatch or overflow");
    }
    return std::nullopt;
}

/// Digits with at most one point and four places behind it, read without anybody's help.
std::optional<std::int64_t> plainAmount(const std::string& text) {
    const std::size_t point = text.find('.');
    std::string digits = text.substr(0, point);
    std::string places = point == std::string::npos ? "" : text.substr(point + 1);
    if (digits.empty() || digits.size() > 12 || places.size() > 4 ||
        (digits + places).find_first_not_of("0123456789") != std::string::npos) {
        return std::nullopt;
    }
    places.resize(4, '0');
    std::int64_t scaled = 0;
    for (const char digit : digits + places) {
        scaled = scaled * 10 + (digit - '0');
    }
    return scaled;
}

void readAndWrite(const std::string& text, MoneyStyle style) {
    const auto amount = converted([&] { return moneyFromText(text, style); });
    const auto again = converted([&] { return asMoney(Variant(text), style); });
    require(amount == again, "a component's text is read like a typed one");
    if (!amount) {
        return;
    }
    style.digits = 4;
    require(moneyFromText(currencyText(*amount, style), style) == *amount,
            "the currency form is read back");
    style.digits = 2;
    const std::string shown = currencyText(*amount, style);
    if (const auto cents = converted([&] { return moneyFromText(shown, style); })) {
        // What is negative and rounds to nothing keeps its sign, which nothing itself has not.
        const bool lostItsSign = amount->isNegative() && *cents == Money();
        require(lostItsSign || currencyText(*cents, style) == shown,
                "a formatted amount is formatted the same");
        require(std::llabs(cents->scaled() / 2 - amount->scaled() / 2) <= 26,
                "the currency form is right to the cent");
    }
}

void readPlain(const std::string& text) {
    const auto amount = plainAmount(text);
    if (!amount) {
        return;
    }
    require(moneyFromText(text, {}).scaled() == *amount, "the program reads plain amounts");
    require(charge::moneyFromGatewayText(text).scaled() == *amount,
            "the charge component reads plain amounts");
    const double number = numberFromText(text);
    require(std::abs(number - static_cast<double>(*amount) / 10'000) < 1e-3, "a plain number");
}

void readAsComponents(const std::string& text) {
    if (const auto amount = converted([&] { return charge::moneyFromGatewayText(text); })) {
        require(charge::moneyFromGatewayText(charge::gatewayText(*amount)) == *amount,
                "the gateway's form is read back");
        const auto shown = logviewer::amountFromText(charge::gatewayText(*amount));
        require(!shown || *shown == amount->scaled(), "the log viewer reads what was written");
    }
    if (const auto amount = logviewer::amountFromText(text)) {
        require(logviewer::amountFromText(logviewer::amountText(*amount)) == amount,
                "the log viewer's form is read back");
        require(charge::moneyFromGatewayText(text).scaled() == *amount,
                "the log viewer reads amounts as the charge component does");
    }
    if (const auto day = logviewer::dayFromText(text, logviewer::PeriodEnd::Last)) {
        require(*day / 100 % 100 >= 1 && *day / 100 % 100 <= 12 && *day % 100 >= 1 &&
                    *day % 100 <= 31,
                "a day of a month of a year");
    }
}

void readAsNumbers(const std::string& text) {
    require(!std::isnan(numberFromText(text)), "a number");
    const auto whole = converted([&] { return asInt(Variant(text)); });
    const auto truth = converted([&] { return asBool(Variant(text)); });
    require(!whole || !truth || *whole == 0 || *truth, "no number but zero is false");
    int expected = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), expected);
    if (problem == std::errc() && end == text.data() + text.size()) {
        require(whole == expected, "a plain whole number is itself");
    }
}

void readAsDate(const std::string& text) {
    for (const DateOrder order :
         {DateOrder::monthDayYear, DateOrder::dayMonthYear, DateOrder::yearMonthDay}) {
        if (const auto date = dateFromText(text, order)) {
            require(date->month >= 1 && date->month <= 12 && date->day >= 1 && date->day <= 31 &&
                        date->year >= 100 && date->year <= 9999,
                    "a date of the calendar");
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Script script(data, size);
    const MoneyStyle style = styleFrom(script);
    const std::string text = script.rest();
    readAndWrite(text, style);
    readPlain(text);
    readAsComponents(text);
    readAsNumbers(text);
    readAsDate(text);
    const std::string path = CapitalizePath(text);
    require(CapitalizePath(path) == path, "a capitalised path stays as it is");
    return 0;
}
