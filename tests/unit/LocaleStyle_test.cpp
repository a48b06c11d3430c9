#include "platform/LocaleStyle.h"

#include "platform/Error.h"
#include "tests/desktop/FakeLocale.h"
#include "tests/desktop/FaultPlan.h"

#include <gtest/gtest.h>

namespace tollvane::test {
namespace {

class LocaleStyleTest : public testing::Test {
protected:
    FaultPlan faults;
    FakeLocale locale{faults};
};

TEST_F(LocaleStyleTest, IsTheSignedInUsersAndNotTheSystems) {
    locale.system = localeid::unitedStates;
    locale.user = localeid::germany;
    const MoneyStyle style = moneyStyle(locale);
    EXPECT_EQ(style.currencySymbol, "\x80");
    EXPECT_EQ(style.moneyDecimal, ",");
    EXPECT_EQ(style.moneyGroup, ".");
    EXPECT_EQ(style.decimalSeparator, ",");
    EXPECT_EQ(style.groupSeparator, ".");
    EXPECT_EQ(style.positiveOrder, 3);
    EXPECT_EQ(style.negativeOrder, 8);
    EXPECT_EQ(style.digits, 2);
    EXPECT_EQ(dateOrder(locale), DateOrder::dayMonthYear);
}

TEST_F(LocaleStyleTest, ANumberMayBeZero) {
    for (const std::uint32_t item : {0x19U, 0x1BU, 0x1CU}) {
        locale.set(item, "0");
    }
    const MoneyStyle style = moneyStyle(locale);
    EXPECT_EQ(style.digits, 0);
    EXPECT_EQ(style.positiveOrder, 0);
    EXPECT_EQ(style.negativeOrder, 0);
}

TEST_F(LocaleStyleTest, ReadsEachItemByItsSystemNumber) {
    locale.set(0x14, "S");
    locale.set(0x0E, "D");
    locale.set(0x0F, "G");
    locale.set(0x16, "d");
    locale.set(0x17, "g");
    locale.set(0x18, "4;0");
    locale.set(0x19, "3");
    locale.set(0x1B, "2");
    locale.set(0x1C, "9");
    locale.set(0x51, "~");
    const MoneyStyle style = moneyStyle(locale);
    EXPECT_EQ(style.currencySymbol, "S");
    EXPECT_EQ(style.decimalSeparator, "D");
    EXPECT_EQ(style.groupSeparator, "G");
    EXPECT_EQ(style.moneyDecimal, "d");
    EXPECT_EQ(style.moneyGroup, "g");
    EXPECT_EQ(style.moneyGrouping, "4;0");
    EXPECT_EQ(style.digits, 3);
    EXPECT_EQ(style.positiveOrder, 2);
    EXPECT_EQ(style.negativeOrder, 9);
    EXPECT_EQ(style.negativeSign, "~");
}

TEST_F(LocaleStyleTest, NoMoreThanNineDecimalsAreTaken) {
    locale.set(0x19, "9");
    EXPECT_EQ(moneyStyle(locale).digits, 9);
    locale.set(0x19, "10");
    EXPECT_EQ(moneyStyle(locale).digits, 9);
    locale.set(0x19, "2000000000");
    EXPECT_EQ(moneyStyle(locale).digits, 9);
}

TEST_F(LocaleStyleTest, AnEmptyItemIsEmptyAndAMissingOneKeepsTheDefault) {
    locale.set(0x17, "");
    locale.remove(0x14);
    locale.set(0x19, "many");
    const MoneyStyle style = moneyStyle(locale);
    EXPECT_EQ(style.moneyGroup, "");
    EXPECT_EQ(style.currencySymbol, "$");
    EXPECT_EQ(style.digits, 2);
}

TEST_F(LocaleStyleTest, AMissingDecimalSignIsNotGuessed) {
    locale.use(localeid::germany);
    locale.remove(0x0E);
    EXPECT_THROW(moneyStyle(locale), Error);
    locale.set(0x0E, ",");
    EXPECT_NO_THROW(moneyStyle(locale));
    locale.remove(0x16);
    EXPECT_THROW(moneyStyle(locale), Error);
}

TEST_F(LocaleStyleTest, AnItemThatFailsAfterItsSizeWasToldKeepsTheDefault) {
    class Failing : public Locale {
    public:
        explicit Failing(Locale& inner) : inner_(inner) {}
        std::uint32_t systemDefault() override { return inner_.systemDefault(); }
        std::uint32_t userDefault() override { return inner_.userDefault(); }
        int info(std::uint32_t which, std::uint32_t item, char* buffer, int size) override {
            const bool fails = size > 0 && item == 0x0F;
            return fails ? 0 : inner_.info(which, item, buffer, size);
        }

    private:
        Locale& inner_;
    } failing{locale};
    locale.set(0x0F, ";");
    EXPECT_EQ(moneyStyle(failing).groupSeparator, MoneyStyle().groupSeparator);
    EXPECT_EQ(localeText(failing, failing.userDefault(), 0x0F), "");
}

TEST_F(LocaleStyleTest, AGroupSeparatorThatTheCodePageLacksIsABlank) {
    locale.set(0x0F, "?");
    locale.set(0x17, "?");
    const MoneyStyle style = moneyStyle(locale);
    const Money amount = Money::fromScaled(12'345'000);
    EXPECT_EQ(currencyText(amount, style), "$1 234.50");
    EXPECT_EQ(moneyFromText("$1 234.50", style), amount);
    EXPECT_EQ(moneyFromText("1 234.50 ", style), amount);
}

TEST_F(LocaleStyleTest, KnowsTheThreeOrdersOfDates) {
    locale.set(0x21, "0");
    EXPECT_EQ(dateOrder(locale), DateOrder::monthDayYear);
    locale.set(0x21, "1");
    EXPECT_EQ(dateOrder(locale), DateOrder::dayMonthYear);
    locale.set(0x21, "2");
    EXPECT_EQ(dateOrder(locale), DateOrder::yearMonthDay);
    locale.set(0x21, "7");
    EXPECT_EQ(dateOrder(locale), DateOrder::monthDayYear);
}

} // namespace
} // namespace tollvane::test
