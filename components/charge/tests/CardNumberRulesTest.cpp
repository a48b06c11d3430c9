#include "components/charge/core/CardNumberRules.h"

#include <gtest/gtest.h>

#include <string>

namespace tollvane::charge {
namespace {

TEST(CardNumberRules, NumbersOfEverySchemeInTheTableAreAccepted) {
    for (const char* number :
         {"4111111111111111", "4222222222222", "5555555555554444", "2223000048400011",
          "378282246310005", "341111111111111", "30569309025904", "36700102000000",
          "3530111333300000", "6011111111111117", "6500000000000002", "6200000000000005",
          "6759649826438453"})
        EXPECT_TRUE(acceptableCardNumber(number)) << cardScheme(number);
}

TEST(CardNumberRules, EveryOtherCheckDigitIsRejected) {
    const std::string start = "411111111111111";
    for (char last = '0'; last <= '9'; ++last)
        EXPECT_EQ(last == '1', acceptableCardNumber(start + last)) << last;
}

TEST(CardNumberRules, TwoNeighbouringDigitsSwappedAreRejected) {
    EXPECT_TRUE(acceptableCardNumber("5105105105105100"));
    EXPECT_FALSE(acceptableCardNumber("5150105105105100"));
}

TEST(CardNumberRules, LengthsThatNoSchemeUsesAreRejected) {
    EXPECT_FALSE(acceptableCardNumber(""));
    EXPECT_FALSE(acceptableCardNumber("0"));
    EXPECT_FALSE(acceptableCardNumber("42222222222")) << "eleven digits";
    EXPECT_FALSE(acceptableCardNumber("41111111111111111111")) << "twenty digits";
    EXPECT_FALSE(acceptableCardNumber("37828224631000"))
        << "fourteen digits of a fifteen digit scheme";
}

TEST(CardNumberRules, PrefixesThatNoSchemeUsesAreRejectedEvenWithARightCheckDigit) {
    EXPECT_FALSE(acceptableCardNumber("0000000000000000"));
    EXPECT_FALSE(acceptableCardNumber("9111111111111111"));
    EXPECT_FALSE(acceptableCardNumber("2220990000000008")) << "just below the range";
}

TEST(CardNumberRules, AnythingButDigitsIsRejected) {
    EXPECT_FALSE(acceptableCardNumber("4111 1111 1111 1111"));
    EXPECT_FALSE(acceptableCardNumber("4111-1111-1111-1111"));
    EXPECT_FALSE(acceptableCardNumber("411111111111111A"));
    EXPECT_FALSE(acceptableCardNumber(std::string(16, '\xB2')));
}

TEST(CardNumberRules, TheSchemeIsNamedWithoutLookingAtTheCheckDigit) {
    EXPECT_EQ("Visa", cardScheme("4111111111111112"));
    EXPECT_EQ("Mastercard", cardScheme("2720999999999996"));
    EXPECT_EQ("", cardScheme("2721000000000004"));
}

} // namespace
} // namespace tollvane::charge
