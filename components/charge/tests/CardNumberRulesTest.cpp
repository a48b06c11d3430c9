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

std::string filled(const std::string& start, std::size_t length, char with) {
    return length <= start.size() ? start.substr(0, length)
                                  : start + std::string(length - start.size(), with);
}

TEST(CardNumberRules, EverySchemeHasItsRangesAndLengths) {
    struct Range {
        const char* scheme;
        const char* first;
        const char* last;
        std::size_t shortest;
    };
    for (const Range& range : {Range{"Diners Club", "300", "305", 14},
                               {"Diners Club", "309", "309", 14},
                               {"Diners Club", "36", "36", 14},
                               {"Diners Club", "38", "39", 14},
                               {"JCB", "3528", "3589", 16},
                               {"Discover", "6011", "6011", 16},
                               {"Discover", "644", "649", 16},
                               {"Discover", "65", "65", 16},
                               {"UnionPay", "62", "62", 16},
                               {"Maestro", "50", "50", 12},
                               {"Maestro", "56", "58", 12},
                               {"Maestro", "6304", "6304", 12},
                               {"Maestro", "6759", "6759", 12},
                               {"Maestro", "6761", "6763", 12}}) {
        for (std::size_t length = 10; length <= 21; ++length) {
            const bool used = length >= range.shortest && length <= 19;
            const std::string expected = used ? range.scheme : "";
            EXPECT_EQ(expected, cardScheme(filled(range.first, length, '0'))) << length;
            EXPECT_EQ(expected, cardScheme(filled(range.last, length, '9'))) << length;
        }
    }
}

TEST(CardNumberRules, SomeSchemesHaveOnlyALengthOrThree) {
    for (std::size_t length = 10; length <= 21; ++length) {
        const bool visa = length == 13 || length == 16 || length == 19;
        EXPECT_EQ(visa ? "Visa" : "", cardScheme(filled("4", length, '0'))) << length;
        EXPECT_EQ(visa ? "Visa" : "", cardScheme(filled("4", length, '9'))) << length;
        for (const char* start : {"51", "55", "2221", "2720"})
            EXPECT_EQ(length == 16 ? "Mastercard" : "", cardScheme(filled(start, length, '5')))
                << start << length;
        for (const char* start : {"34", "37"})
            EXPECT_EQ(length == 15 ? "American Express" : "",
                      cardScheme(filled(start, length, '5')))
                << start << length;
    }
}

TEST(CardNumberRules, BesideTheRangesOfASchemeAreOthersOrNone) {
    for (const char* start : {"2220", "2721", "299",  "306",  "308", "310",  "33",   "34",
                              "35",   "37",   "3527", "3590", "59",  "6010", "6012", "61",
                              "63",   "6303", "6305", "643",  "66",  "6758", "6760", "6764"})
        EXPECT_EQ("", cardScheme(filled(start, 16, '0'))) << start;
    EXPECT_EQ("Maestro", cardScheme(filled("50", 16, '9')));
    EXPECT_EQ("Maestro", cardScheme(filled("56", 16, '0')));
}

TEST(CardNumberRules, TheSchemeIsNamedWithoutLookingAtTheCheckDigit) {
    EXPECT_EQ("Visa", cardScheme("4111111111111112"));
    EXPECT_EQ("Mastercard", cardScheme("2720999999999996"));
    EXPECT_EQ("", cardScheme("2721000000000004"));
}

} // namespace
} // namespace tollvane::charge
