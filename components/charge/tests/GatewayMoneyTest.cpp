#include "components/charge/core/GatewayMoney.h"

#include "components/charge/core/Failure.h"

#include <gtest/gtest.h>

#include <limits>

namespace tollvane::charge {
namespace {

std::uint32_t problemWith(const char* text) {
    try {
        moneyFromGatewayText(text);
    } catch (const com::ComponentError& error) {
        return error.number();
    }
    return 0;
}

TEST(GatewayMoney, TextHasTwoToFourDecimalPlaces) {
    EXPECT_EQ("0.00", gatewayText(Money()));
    EXPECT_EQ("12.50", gatewayText(Money::fromScaled(125'000)));
    EXPECT_EQ("0.1234", gatewayText(Money::fromScaled(1'234)));
    EXPECT_EQ("-0.05", gatewayText(Money::fromScaled(-500)));
    EXPECT_EQ("1000000.00", gatewayText(Money::fromUnits(1'000'000)));
}

TEST(GatewayMoney, TheLargestAndSmallestAmountsHaveATextAndComeBack) {
    const auto limit = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ("922337203685477.5807", gatewayText(Money::fromScaled(limit)));
    EXPECT_EQ("-922337203685477.5808",
              gatewayText(Money::fromScaled(std::numeric_limits<std::int64_t>::min())));
    EXPECT_EQ(limit, moneyFromGatewayText("922337203685477.5807").scaled());
    EXPECT_EQ(failurenumber::amountTooLarge, problemWith("922337203685477.5808"));
}

TEST(GatewayMoney, PlainFormsAreRead) {
    EXPECT_EQ(125'000, moneyFromGatewayText("12.50").scaled());
    EXPECT_EQ(120'000, moneyFromGatewayText(" 12 ").scaled());
    EXPECT_EQ(5'000, moneyFromGatewayText(".5").scaled());
    EXPECT_EQ(120'000, moneyFromGatewayText("12.").scaled());
    EXPECT_EQ(-15'000, moneyFromGatewayText("-1.5").scaled());
    EXPECT_EQ(15'000, moneyFromGatewayText("+1.5").scaled());
    EXPECT_EQ(0, moneyFromGatewayText("").scaled());
}

TEST(GatewayMoney, OtherTextsAreATypeMismatch) {
    for (const char* text :
         {"abc", "1,50", "$1", "1.2.3", "1.23456", "-", ".", "1e3", "--1", "1 2"})
        EXPECT_EQ(failurenumber::notAnAmount, problemWith(text)) << text;
}

TEST(GatewayMoney, ItsErrorsAreTheRunTimesOwnToACaller) {
    EXPECT_EQ(0x800A000Du, problemWith("abc"));
    EXPECT_EQ(0x800A0006u, problemWith("922337203685477.5808"));
}

TEST(GatewayMoney, EveryTextThatIsWrittenIsReadBack) {
    for (std::int64_t scaled = -25'000; scaled <= 25'000; scaled += 7)
        ASSERT_EQ(scaled, moneyFromGatewayText(gatewayText(Money::fromScaled(scaled))).scaled());
}

} // namespace
} // namespace tollvane::charge
