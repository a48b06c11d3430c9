#include "platform/Error.h"
#include "platform/Money.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace tollvane {
namespace {

void expectHolds(const std::string& what, const auto& property) {
    EXPECT_TRUE(rc::check(what, property));
}

/// Styles as locales have them: separators that differ from each other and from digits and signs.
MoneyStyle anyStyle() {
    MoneyStyle style;
    style.currencySymbol =
        *rc::gen::element<std::string>("$", "\x80", "CHF", "kr.", "R$", "Rs.", "");
    style.decimalSeparator = *rc::gen::element<std::string>(".", ",");
    style.groupSeparator = style.decimalSeparator == "."
                               ? *rc::gen::element<std::string>(",", "'")
                               : *rc::gen::element<std::string>(".", "\xA0");
    style.moneyDecimal = style.decimalSeparator;
    style.moneyGroup = style.groupSeparator;
    style.moneyGrouping = *rc::gen::element<std::string>("3;0", "3;2;0", "4;0", "0");
    style.positiveOrder = *rc::gen::inRange(0, 4);
    style.negativeOrder = *rc::gen::inRange(0, 16);
    style.digits = *rc::gen::inRange(2, 6);
    return style;
}

Money anyAmount() {
    return Money::fromScaled(*rc::gen::resize(100, rc::gen::arbitrary<std::int64_t>()));
}

TEST(MoneyProperty, CurrencyTextsReadBackAsTheAmount) {
    expectHolds("currency round trip", [] {
        MoneyStyle style = anyStyle();
        style.digits = 4;
        const Money amount = anyAmount();
        RC_ASSERT(moneyFromText(currencyText(amount, style), style) == amount);
    });
}

TEST(MoneyProperty, FormattingAFormattedAmountChangesNothing) {
    expectHolds("formatting is idempotent", [] {
        const MoneyStyle style = anyStyle();
        const auto cents = *rc::gen::inRange<std::int64_t>(-99'999'999'999, 100'000'000'000);
        const Money amount = Money::fromScaled(cents * 100);
        const std::string once = currencyText(amount, style);
        RC_ASSERT(currencyText(moneyFromText(once, style), style) == once);
        RC_ASSERT(moneyFromText(plainMoneyText(amount, style), style) == amount);
    });
}

TEST(MoneyProperty, MoreThanFourPlacesRoundHalfToEven) {
    expectHolds("half to even", [] {
        const auto kept = *rc::gen::inRange<std::int64_t>(0, 1'000'000'000);
        const auto rest = *rc::gen::inRange<int>(0, 1000);
        const std::string places = std::to_string(10'000 + kept % 10'000).substr(1);
        const std::string text =
            std::to_string(kept / 10'000) + "." + places + std::to_string(1000 + rest).substr(1);
        const bool up = rest > 500 || (rest == 500 && kept % 2 != 0);
        RC_ASSERT(moneyFromText(text, {}).scaled() == kept + (up ? 1 : 0));
    });
}

TEST(MoneyProperty, AnyTextConvertsOrRaisesMismatchOrOverflow) {
    expectHolds("no other end", [] {
        const MoneyStyle style = anyStyle();
        const auto text = *rc::gen::container<std::string>(
            rc::gen::oneOf(rc::gen::elementOf(std::string("0123456789.,-+()$ eEdD&HhOoAF'%")),
                           rc::gen::arbitrary<char>()));
        try {
            moneyFromText(text, style);
        } catch (const Error& error) {
            RC_ASSERT(error.number() == 13 || error.number() == 6);
        }
    });
}

TEST(MoneyProperty, TheOrderOfAmountsIsTheOrderOfTheirNumbers) {
    expectHolds("order", [] {
        const auto one = *rc::gen::arbitrary<int>();
        const auto other = *rc::gen::arbitrary<int>();
        RC_ASSERT((moneyFromText(std::to_string(one), {}) <
                   moneyFromText(std::to_string(other), {})) == (one < other));
    });
}

} // namespace
} // namespace tollvane
