#include "platform/Error.h"
#include "platform/Money.h"

#include <gtest/gtest.h>
#include <limits>

namespace tollvane {
namespace {

constexpr auto kLowest = std::numeric_limits<std::int64_t>::min();
constexpr auto kHighest = std::numeric_limits<std::int64_t>::max();

MoneyStyle german() {
    MoneyStyle style;
    style.currencySymbol = "\x80";
    style.decimalSeparator = style.moneyDecimal = ",";
    style.groupSeparator = style.moneyGroup = ".";
    style.positiveOrder = 3;
    style.negativeOrder = 8;
    return style;
}

std::int64_t scaled(std::string_view text, const MoneyStyle& style = {}) {
    try {
        return moneyFromText(text, style).scaled();
    } catch (const Error& error) {
        ADD_FAILURE() << '"' << text << "\" raised " << error.number();
        return 0;
    }
}

/// The number that converting the text raises, 0 when it converts.
long failure(std::string_view text, const MoneyStyle& style = {}) {
    try {
        moneyFromText(text, style);
        return 0;
    } catch (const Error& error) {
        EXPECT_EQ(error.description(), error.number() == 13 ? "Type mismatch" : "Overflow");
        return error.number();
    }
}

TEST(MoneyFromText, ReadsPlainNumbers) {
    EXPECT_EQ(scaled("12"), 120'000);
    EXPECT_EQ(scaled("12.5"), 125'000);
    EXPECT_EQ(scaled("0012.5000"), 125'000);
    EXPECT_EQ(scaled(".5"), 5'000);
    EXPECT_EQ(scaled("5."), 50'000);
    EXPECT_EQ(scaled("0"), 0);
    EXPECT_EQ(scaled("-0"), 0);
}

TEST(MoneyFromText, ReadsWhatTheCurrencyFormatWrites) {
    EXPECT_EQ(scaled("$1,234.50"), 12'345'000);
    EXPECT_EQ(scaled("($1,234.50)"), -12'345'000);
    EXPECT_EQ(scaled("-$1.50"), -15'000);
    EXPECT_EQ(scaled("$-1.50"), -15'000);
    EXPECT_EQ(scaled("$1.50-"), -15'000);
    EXPECT_EQ(scaled("1.50-$"), -15'000);
    EXPECT_EQ(scaled("1.50 $-"), -15'000);
    EXPECT_EQ(scaled("(1.50 $)"), -15'000);
}

TEST(MoneyFromText, TakesBlanksAroundEveryPiece) {
    EXPECT_EQ(scaled("  12  "), 120'000);
    EXPECT_EQ(scaled("\t12\r\n"), 120'000);
    EXPECT_EQ(scaled("\xA0 12\xA0"), 120'000);
    EXPECT_EQ(scaled(" ( $ 12 ) "), -120'000);
    EXPECT_EQ(scaled("- 12"), -120'000);
    EXPECT_EQ(scaled("12 -"), -120'000);
}

TEST(MoneyFromText, RefusesWhatIsNoAmount) {
    for (const char* text : {"",     " ",    "abc",  "12a", "a12",   "1.2.3",  ".",   "-",
                             "+",    "$",    "()",   "($)", "$.",    "12 34",  "1-2", "1(2)",
                             "12()", "()12", "True", "12%", "1_000", "\xA3 12"}) {
        EXPECT_EQ(failure(text), 13) << text;
    }
}

TEST(MoneyFromText, RefusesDecorationsThatStandTwiceOrStayOpen) {
    for (const char* text :
         {"--12", "-12-", "++12", "+12+", "$$12", "12$$", "(12", "12)", "((12))", "(-12)-"}) {
        EXPECT_EQ(failure(text), 13) << text;
    }
}

TEST(MoneyFromText, AMinusOrBracketsMakeItNegativeHoweverTheyAreMixed) {
    for (const char* text :
         {"+-12", "-12+", "(-12)", "(12)-", "(12)+", "-(12)", "$(12)", "(12)$"}) {
        EXPECT_EQ(scaled(text), -120'000) << text;
    }
}

TEST(MoneyFromText, GroupSeparatorsCountForNothingBehindTheFirstDigit) {
    EXPECT_EQ(scaled("1,2,3"), 1'230'000);
    EXPECT_EQ(scaled("1,,2"), 120'000);
    EXPECT_EQ(scaled("12,"), 120'000);
    EXPECT_EQ(scaled("12 -,"), -120'000);
    EXPECT_EQ(scaled("1.2,3"), 12'300);
    EXPECT_EQ(failure(",123"), 13);
}

TEST(MoneyFromText, ReadsExponents) {
    EXPECT_EQ(scaled("1e3"), 10'000'000);
    EXPECT_EQ(scaled("1E+3"), 10'000'000);
    EXPECT_EQ(scaled("1e-3"), 10);
    EXPECT_EQ(scaled("1d3"), 10'000'000);
    EXPECT_EQ(scaled("1,000e3"), 10'000'000'000);
    EXPECT_EQ(scaled("1e-300"), 0);
    EXPECT_EQ(scaled("0e99999999999999999999"), 0);
    for (const char* text : {"1e", "1e+", "e3", "1 e3", "1e 3", "1e3.5", "$1e3"}) {
        EXPECT_EQ(failure(text), 13) << text;
    }
}

TEST(MoneyFromText, ReadsHexadecimalAndOctalLiterals) {
    EXPECT_EQ(scaled("&H0"), 0);
    EXPECT_EQ(scaled("&H1"), 10'000);
    EXPECT_EQ(scaled("&H10"), 160'000);
    EXPECT_EQ(scaled("&h1f"), 310'000);
    EXPECT_EQ(scaled("&O17"), 150'000);
    EXPECT_EQ(scaled(" -&H10 "), -160'000);
    EXPECT_EQ(scaled("&HFFFFFFFF"), 42'949'672'950'000);
    EXPECT_EQ(failure("&HFFFFFFFFFFFFFFFFF"), 6);
    for (const char* text : {"&", "&H", "&HG", "&O8", "&17", "$&H10", "&h 10"}) {
        EXPECT_EQ(failure(text), 13) << text;
    }
}

TEST(MoneyFromText, RoundsHalfToEvenAtTheFourthPlace) {
    EXPECT_EQ(scaled("0.00005"), 0);
    EXPECT_EQ(scaled("0.00015"), 2);
    EXPECT_EQ(scaled("0.00025"), 2);
    EXPECT_EQ(scaled("-0.00015"), -2);
    EXPECT_EQ(scaled("1.00005"), 10'000);
    EXPECT_EQ(scaled("0.000250000000000000000000001"), 3);
    EXPECT_EQ(scaled("0.00024999999999999999999"), 2);
    EXPECT_EQ(scaled("0.00004"), 0);
}

TEST(MoneyFromText, KeepsEveryPlaceOfTheLargestAmounts) {
    EXPECT_EQ(scaled("922337203685477.5807"), kHighest);
    EXPECT_EQ(scaled("-922337203685477.5808"), kLowest);
    EXPECT_EQ(scaled("900000000000000.1234"), 9'000'000'000'000'001'234);
}

TEST(MoneyFromText, RaisesOverflowBeyondThem) {
    for (const char* text : {"922337203685477.5808", "-922337203685477.5809", "1e15", "1e300",
                             "1e99999999999999999999", "99999999999999999999999999"}) {
        EXPECT_EQ(failure(text), 6) << text;
    }
}

TEST(MoneyFromText, AMalformedTextIsAMismatchHoweverLargeItIs) {
    EXPECT_EQ(failure("1e300x"), 13);
}

TEST(MoneyFromText, FollowsTheLocalesSeparators) {
    EXPECT_EQ(scaled("1.234,50 \x80", german()), 12'345'000);
    EXPECT_EQ(scaled("1,5", german()), 15'000);
    EXPECT_EQ(scaled("1.5", german()), 150'000);
    EXPECT_EQ(failure("$1", german()), 13);
}

TEST(MoneyFromText, SeparatorsOfMoneyCountOnlyBesideTheSymbol) {
    MoneyStyle style;
    style.moneyDecimal = ":";
    style.moneyGroup = "'";
    EXPECT_EQ(scaled("$1'234:50", style), 12'345'000);
    EXPECT_EQ(scaled("1'234:50 $", style), 12'345'000);
    EXPECT_EQ(scaled("1234.50", style), 12'345'000);
    EXPECT_EQ(failure("1'234", style), 13);
    EXPECT_EQ(failure("1:50", style), 13);
}

TEST(MoneyFromText, WhereBlanksPartGroupsAnyBlankDoes) {
    MoneyStyle style = german();
    style.groupSeparator = style.moneyGroup = "\xA0";
    EXPECT_EQ(scaled("1\240234,50 \x80", style), 12'345'000);
    EXPECT_EQ(scaled("1 234,50", style), 12'345'000);
    EXPECT_EQ(scaled("1 ", style), 10'000);
}

TEST(MoneyFromText, SymbolsMayBeLongAndHoldTheDecimalSeparator) {
    MoneyStyle style;
    style.currencySymbol = "Rs.";
    EXPECT_EQ(scaled("Rs. 12.50", style), 125'000);
    EXPECT_EQ(scaled("12.50Rs.", style), 125'000);
    EXPECT_EQ(failure("Rs 12.50", style), 13);
}

TEST(MoneyFromText, AnEmptySymbolIsNone) {
    MoneyStyle style;
    style.currencySymbol = "";
    EXPECT_EQ(scaled("-12.50", style), -125'000);
}

TEST(MoneyFromText, TakesTheLocalesOwnMinusAndTheUsualOne) {
    MoneyStyle style;
    style.negativeSign = "\x96";
    EXPECT_EQ(scaled("\2265", style), -50'000);
    EXPECT_EQ(scaled("-5", style), -50'000);
    EXPECT_EQ(failure("-\2265", style), 13);
}

TEST(CurrencyText, GroupsAndShowsTheLocalesDigits) {
    const MoneyStyle style;
    EXPECT_EQ(currencyText(Money(), style), "$0.00");
    EXPECT_EQ(currencyText(Money::fromScaled(12'345'000), style), "$1,234.50");
    EXPECT_EQ(currencyText(Money::fromUnits(999), style), "$999.00");
    EXPECT_EQ(currencyText(Money::fromUnits(1'000), style), "$1,000.00");
    EXPECT_EQ(currencyText(Money::fromScaled(12'345'000), german()), "1.234,50 \x80");
    EXPECT_EQ(currencyText(Money::fromScaled(-12'345'000), german()), "-1.234,50 \x80");
}

TEST(CurrencyText, RoundsHalfAwayFromZero) {
    const MoneyStyle style;
    EXPECT_EQ(currencyText(Money::fromScaled(1'250), style), "$0.13");
    EXPECT_EQ(currencyText(Money::fromScaled(1'249), style), "$0.12");
    EXPECT_EQ(currencyText(Money::fromScaled(50), style), "$0.01");
    EXPECT_EQ(currencyText(Money::fromScaled(-50), style), "($0.01)");
    EXPECT_EQ(currencyText(Money::fromScaled(9'999'950), style), "$1,000.00");
}

TEST(CurrencyText, ANegativeAmountThatRoundsToZeroKeepsItsNegativeForm) {
    EXPECT_EQ(currencyText(Money::fromScaled(-40), {}), "($0.00)");
}

TEST(CurrencyText, ShowsTheLargestAmountsWhole) {
    const MoneyStyle style;
    EXPECT_EQ(currencyText(Money::fromScaled(kHighest), style), "$922,337,203,685,477.58");
    EXPECT_EQ(currencyText(Money::fromScaled(kLowest), style), "($922,337,203,685,477.58)");
}

TEST(CurrencyText, ShowsAsManyDecimalsAsTheLocaleHas) {
    MoneyStyle style;
    style.digits = 0;
    EXPECT_EQ(currencyText(Money::fromScaled(15'000), style), "$2");
    style.digits = 3;
    EXPECT_EQ(currencyText(Money::fromScaled(15'675), style), "$1.568");
    style.digits = 4;
    EXPECT_EQ(currencyText(Money::fromScaled(15'675), style), "$1.5675");
    style.digits = 6;
    EXPECT_EQ(currencyText(Money::fromScaled(15'675), style), "$1.567500");
}

TEST(CurrencyText, GroupsAsTheLocaleDoes) {
    const Money amount = Money::fromUnits(1'234'567'890);
    const std::vector<std::pair<std::string, std::string>> groupings{
        {"3;0", "$1,234,567,890.00"}, {"3;2;0", "$1,23,45,67,890.00"}, {"3", "$1234567,890.00"},
        {"4;0", "$12,3456,7890.00"},  {"0", "$1234567890.00"},         {"", "$1234567890.00"},
        {"3;2", "$12345,67,890.00"},  {"12;0", "$1234567890.00"}};
    for (const auto& [grouping, text] : groupings) {
        MoneyStyle style;
        style.moneyGrouping = grouping;
        EXPECT_EQ(currencyText(amount, style), text) << grouping;
    }
}

TEST(CurrencyText, KnowsEveryOrderOfTheLocaleDatabase) {
    MoneyStyle style;
    const std::vector<std::string> positive{"$1.10", "1.10$", "$ 1.10", "1.10 $"};
    const std::vector<std::string> negative{
        "($1.10)", "-$1.10",  "$-1.10",  "$1.10-",  "(1.10$)", "-1.10$",  "1.10-$",   "1.10$-",
        "-1.10 $", "-$ 1.10", "1.10 $-", "$ 1.10-", "$ -1.10", "1.10- $", "($ 1.10)", "(1.10 $)"};
    for (std::size_t i = 0; i < positive.size(); ++i) {
        style.positiveOrder = static_cast<int>(i);
        EXPECT_EQ(currencyText(Money::fromScaled(11'000), style), positive[i]);
    }
    for (std::size_t i = 0; i < negative.size(); ++i) {
        style.negativeOrder = static_cast<int>(i);
        EXPECT_EQ(currencyText(Money::fromScaled(-11'000), style), negative[i]);
        EXPECT_EQ(scaled(negative[i]), -11'000) << negative[i];
    }
}

TEST(CurrencyText, TakesTheFirstFormForAnOrderThatDoesNotExist) {
    for (const int order : {-1, 16, 100}) {
        MoneyStyle style;
        style.positiveOrder = style.negativeOrder = order;
        EXPECT_EQ(currencyText(Money::fromScaled(11'000), style), "$1.10") << order;
        EXPECT_EQ(currencyText(Money::fromScaled(-11'000), style), "($1.10)") << order;
    }
    MoneyStyle style;
    style.positiveOrder = 4;
    EXPECT_EQ(currencyText(Money::fromScaled(11'000), style), "$1.10");
}

TEST(PlainMoneyText, DropsSymbolAndGroups) {
    EXPECT_EQ(plainMoneyText(Money::fromScaled(12'345'000), {}), "1234.50");
    EXPECT_EQ(plainMoneyText(Money(), {}), "0.00");
    EXPECT_EQ(plainMoneyText(Money::fromScaled(-15'000), {}), "-1.50");
    EXPECT_EQ(plainMoneyText(Money::fromScaled(5'000), {}), "0.50");
    EXPECT_EQ(plainMoneyText(Money::fromScaled(1'250), {}), "0.13");
    EXPECT_EQ(plainMoneyText(Money::fromScaled(12'345'000), german()), "1234,50");
}

TEST(PlainMoneyText, HasTwoDecimalsWhateverTheLocalesCurrencyHas) {
    MoneyStyle style;
    style.digits = 0;
    EXPECT_EQ(plainMoneyText(Money::fromScaled(15'000), style), "1.50");
}

TEST(Money, HasAnAbsoluteValue) {
    EXPECT_EQ(Money::fromUnits(-5).absolute(), Money::fromUnits(5));
    EXPECT_EQ(Money::fromUnits(5).absolute(), Money::fromUnits(5));
    EXPECT_EQ(Money::fromUnits(5).negated(), Money::fromUnits(-5));
}

TEST(Money, TheLowestAmountHasNoPositiveTwin) {
    EXPECT_THROW(Money::fromScaled(kLowest).absolute(), Error);
    EXPECT_THROW(Money::fromScaled(kLowest).negated(), Error);
}

} // namespace
} // namespace tollvane
