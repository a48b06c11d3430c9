#include "controls/DecimalNumber.h"

#include <gtest/gtest.h>

namespace tollvane {
namespace {

const DecimalStyle kPoint{".", 2};

bool may(std::string_view text, int start, int length, int key,
         const DecimalStyle& style = kPoint) {
    return mayTypeDecimal({text, start, length}, key, style);
}

TEST(DecimalNumber, TakesNoDigitBehindFullPlaces) {
    EXPECT_FALSE(may("12.34", 5, 0, '5'));
    EXPECT_FALSE(may("12.34", 3, 0, '5'));
    EXPECT_TRUE(may("12.3", 4, 0, '5'));
    EXPECT_TRUE(may("12.", 3, 0, '5'));
    EXPECT_TRUE(may("12", 2, 0, '5'));
}

TEST(DecimalNumber, TakesDigitsBeforeTheSeparator) {
    EXPECT_TRUE(may("12.34", 0, 0, '5'));
    EXPECT_TRUE(may("12.34", 2, 0, '5'));
}

TEST(DecimalNumber, TakesADigitInPlaceOfASelection) {
    EXPECT_TRUE(may("12.34", 4, 1, '5'));
}

TEST(DecimalNumber, TakesNoSecondSeparator) {
    EXPECT_FALSE(may("12.34", 5, 0, '.'));
    EXPECT_FALSE(may("12.34", 0, 0, '.'));
    EXPECT_TRUE(may("1234", 2, 0, '.'));
}

TEST(DecimalNumber, TakesASeparatorInPlaceOfTheOneThatIsSelected) {
    EXPECT_TRUE(may("12.34", 2, 1, '.'));
    EXPECT_TRUE(may("12.34", 0, 5, '.'));
    EXPECT_FALSE(may("12.34", 0, 2, '.'));
    EXPECT_TRUE(may("1234", 0, 2, '.'));
}

TEST(DecimalNumber, AlwaysTakesBackspaceAndOtherCharacters) {
    EXPECT_TRUE(may("12.34", 5, 0, 8));
    EXPECT_TRUE(may("12.34", 5, 0, 'x'));
    EXPECT_TRUE(may("12.34", 5, 0, '-'));
    EXPECT_TRUE(may("12.34", 5, 0, ','));
}

TEST(DecimalNumber, WithoutPlacesTakesNothingBehindTheSeparator) {
    EXPECT_FALSE(may("12.", 3, 0, '5', {".", 0}));
    EXPECT_TRUE(may("12.", 2, 0, '5', {".", 0}));
}

TEST(DecimalNumber, FollowsTheSeparatorOfTheLocale) {
    EXPECT_FALSE(may("12,34", 5, 0, ',', {",", 2}));
    EXPECT_FALSE(may("12,34", 5, 0, '5', {",", 2}));
    EXPECT_TRUE(may("12,34", 5, 0, '.', {",", 2}));
}

TEST(DecimalNumber, WithoutASeparatorOfOneCharacterNothingIsLimited) {
    EXPECT_TRUE(may("12.34", 5, 0, '.', {"", 2}));
    EXPECT_TRUE(may("12.34", 5, 0, '5', {"::", 2}));
}

} // namespace
} // namespace tollvane
