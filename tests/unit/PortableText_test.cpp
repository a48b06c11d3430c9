// Texts at the edges of what the conversions take.

#include "app/CommonRoutines.h"
#include "entry/FieldFilters.h"
#include "platform/Error.h"
#include "platform/Letters.h"
#include "platform/LocaleStyle.h"
#include "platform/Variant.h"
#include "tests/desktop/FakeFiles.h"
#include "tests/desktop/FakeLocale.h"
#include "tests/desktop/FaultPlan.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>

namespace tollvane {
namespace {

long failure(const Variant& value) {
    try {
        (void)asInt(value);
        return 0;
    } catch (const Error& error) {
        return error.number();
    }
}

TEST(VariantEdges, WholeNumbersEndWhereThirtyTwoBitsEnd) {
    EXPECT_EQ(asInt(std::string("-2147483648")), -2147483647 - 1);
    EXPECT_EQ(asInt(std::string("2147483647")), 2147483647);
    for (const char* text : {"-2147483649", "2147483648", "1e300", "&H1FFFFFFFF",
                             "&HFFFFFFFFFFFFFFFFF", "&O7777777777777777777777777"}) {
        EXPECT_EQ(failure(std::string(text)), 6) << text;
    }
    EXPECT_EQ(asInt(std::string("&HFFFFFFFF")), -1);
    EXPECT_EQ(asInt(std::string("-&H10")), -16);
}

TEST(VariantEdges, MoneyRoundsHalfToEven) {
    const auto whole = [](std::int64_t scaled) { return asInt(Money::fromScaled(scaled)); };
    EXPECT_EQ(whole(15'000), 2);
    EXPECT_EQ(whole(25'000), 2);
    EXPECT_EQ(whole(25'001), 3);
    EXPECT_EQ(whole(24'999), 2);
    EXPECT_EQ(whole(-15'000), -2);
    EXPECT_EQ(whole(-25'001), -3);
}

TEST(VariantEdges, NumbersBeyondEveryFractionAreTrueAndThoseBelowAreNot) {
    EXPECT_TRUE(asBool(std::string("1e400")));
    EXPECT_TRUE(asBool(std::string("-1e400")));
    EXPECT_FALSE(asBool(std::string("1e-400")));
}

TEST(LocaleEdges, DigitsAndOrdersThatDoNotExistHaveASubstitute) {
    test::FaultPlan faults;
    test::FakeLocale locale(faults);
    locale.set(test::localeitem::moneyDigits, "-1");
    EXPECT_EQ(moneyStyle(locale).digits, 2);
    locale.set(test::localeitem::moneyDigits, "12");
    EXPECT_EQ(moneyStyle(locale).digits, 9);
    locale.set(test::localeitem::moneyDigits, "9");
    EXPECT_EQ(moneyStyle(locale).digits, 9);
    MoneyStyle style;
    style.positiveOrder = -1;
    style.negativeOrder = 16;
    EXPECT_EQ(currencyText(Money::fromUnits(1), style), "$1.00");
    EXPECT_EQ(currencyText(Money::fromUnits(-1), style), "($1.00)");
    style.positiveOrder = 4;
    EXPECT_EQ(currencyText(Money::fromUnits(1), style), "$1.00");
    style.moneyGrouping = " 3:;0";
    EXPECT_EQ(currencyText(Money::fromUnits(1'234'567), style), "$1,234,567.00");
}

TEST(FilterEdges, EditingKeysPassAndKeysWithoutACharacterStay) {
    const auto zip = [](int key) {
        filterZipKey(key);
        return key;
    };
    for (const int key : {8, 1, 3, 22, 24, 26}) {
        EXPECT_EQ(zip(key), key);
    }
    for (const int key : {2, 4, 7, 9, 21, 23, 25}) {
        EXPECT_EQ(zip(key), 0) << key;
    }
    int beyond = 0x100;
    filterNameKey(beyond);
    EXPECT_EQ(beyond, 0x100);
}

TEST(CommonRoutineEdges, AFolderThatIsNotKnownIsTheRoot) {
    test::FaultPlan faults;
    test::FakeFiles files(faults);
    files.folder.clear();
    EXPECT_EQ(AppFolder(files), "\\");
}

TEST(CommonRoutineEdges, BlanksInANumberAreLeftOut) {
    EXPECT_EQ(numberFromText(" 1 2\t3\n4\r5 "), 12345);
}

/// The process's code page for one test.
class LettersOfTwoBytes : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr); }
    void TearDown() override { std::setlocale(LC_CTYPE, "C"); }
};

TEST_F(LettersOfTwoBytes, StayAsTheyAre) {
    const std::string letter = "\xC3\xA9";
    EXPECT_EQ(characterLength(letter), 2U);
    EXPECT_EQ(CapitalizePath("a" + letter + "B " + letter + "c"),
              "A" + letter + "b " + letter + "c");
    EXPECT_EQ(lowerCased("A" + letter + "B"), "a" + letter + "b");
}

TEST_F(LettersOfTwoBytes, ABrokenOneCountsAsOneByte) {
    EXPECT_EQ(characterLength("\xA9x"), 1U);
    EXPECT_EQ(characterLength("\xC3"), 1U);
    EXPECT_EQ(characterLength(std::string_view("\0x", 2)), 1U);
    EXPECT_EQ(characterLength(""), 0U);
}

} // namespace
} // namespace tollvane
