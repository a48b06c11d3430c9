#include "components/charge/core/CardDataMask.h"
#include "components/charge/core/Expiry.h"
#include "components/charge/core/TrackOne.h"

#include <gtest/gtest.h>

#include <string>

namespace tollvane::charge {
namespace {

TEST(Expiry, TheFormsThatProgramsSendAreUnderstood) {
    for (const char* text :
         {"3-2027", "03-2027", "3/2027", "3-27", "3-1-2027", "3-31-2027", "03/01/2027", "0327"})
        EXPECT_EQ((Expiry{3, 2027}), expiryFromText(text)) << text;
}

TEST(Expiry, MonthsAreTwelveAndYearsBeginWithTheCentury) {
    EXPECT_EQ((Expiry{1, 2000}), expiryFromText("1-2000"));
    EXPECT_EQ((Expiry{12, 2099}), expiryFromText("12-99"));
    EXPECT_EQ((Expiry{12, 2000}), expiryFromText("1200"));
    EXPECT_EQ((Expiry{12, 9999}), expiryFromText("12-9999"));
    for (const char* text : {"1-1999", "1-100", "1-999", "00-2027", "0027"})
        EXPECT_FALSE(expiryFromText(text)) << text;
}

TEST(Expiry, IsWrittenInTwoManners) {
    EXPECT_EQ("3-2027", (Expiry{3, 2027}.text()));
    EXPECT_EQ("0327", (Expiry{3, 2027}.compact()));
    EXPECT_EQ("1200", (Expiry{12, 2100}.compact()));
    EXPECT_EQ("0105", (Expiry{1, 2005}.compact()));
}

TEST(Expiry, OtherTextsAreNone) {
    for (const char* text : {"", "3", "13-2027", "0-2027", "3-", "-2027", "a-2027", "3-20277",
                             "3-0-2027", "3-32-2027", "1327", "03272027", "3-2027-1-1"})
        EXPECT_FALSE(expiryFromText(text)) << text;
}

TEST(Expiry, ACardIsGoodToTheEndOfItsMonth) {
    const Expiry expiry{3, 2027};
    EXPECT_FALSE(expiry.isPast({2027, 3, 31, 23, 59, 59, 0}));
    EXPECT_TRUE(expiry.isPast({2027, 4, 1, 0, 0, 0, 0}));
    EXPECT_TRUE(expiry.isPast({2028, 1, 1, 0, 0, 0, 0}));
    EXPECT_FALSE(expiry.isPast({2026, 12, 31, 0, 0, 0, 0}));
}

TEST(TrackOne, NumberAndExpiryAreTaken) {
    const auto track = parseTrackOne("%B4111111111111111^SMITH/JOHN^2712101000000?");
    ASSERT_TRUE(track);
    EXPECT_EQ("4111111111111111", track->cardNumber.view());
    EXPECT_EQ((Expiry{12, 2027}), track->expiry);
}

TEST(TrackOne, AnExpiryMayStandAloneOrBeforeOtherData) {
    for (const char* data : {"2712", "2712101000000", "2712X"}) {
        const auto track = parseTrackOne("%B4111111111111111^A^" + std::string(data) + "?");
        ASSERT_TRUE(track) << data;
        EXPECT_EQ((Expiry{12, 2027}), track->expiry) << data;
    }
}

TEST(TrackOne, BlanksInTheNumberAndTextAroundTheTrackDoNotMatter) {
    const auto track = parseTrackOne("x%b4111 1111 1111 1111^A^2701?;4111111111111111=2701?");
    ASSERT_TRUE(track);
    EXPECT_EQ("4111111111111111", track->cardNumber.view());
}

TEST(TrackOne, TheNameMayBeMissing) {
    const auto track = parseTrackOne("%B4111111111111111^^2712?");
    ASSERT_TRUE(track);
    EXPECT_EQ("4111111111111111", track->cardNumber.view());
    EXPECT_EQ((Expiry{12, 2027}), track->expiry);
}

TEST(TrackOne, IncompleteTracksAreNone) {
    for (const char* text : {"", "%", "%B", "%B?", "B4111^A^2712?", "%B4111111111111111^A^2712",
                             "%B4111111111111111^A?", "%B^A^2712?", "%B4111?^A^2712",
                             "%B4111111111111111^A?^2712", ";4111=2712?"})
        EXPECT_FALSE(parseTrackOne(text)) << text;
}

TEST(TrackOne, ATrackWithoutAReadableExpiryStillGivesTheNumber) {
    for (const char* expiry : {"", "27", "271", "XXXX", "27XX", "2713", "2700"}) {
        const auto track = parseTrackOne("%B4111111111111111^A^" + std::string(expiry) + "?");
        ASSERT_TRUE(track) << expiry;
        EXPECT_EQ("4111111111111111", track->cardNumber.view()) << expiry;
        EXPECT_FALSE(track->expiry) << expiry;
    }
}

TEST(CardDataMask, CardNumbersInTextsKeepTheirLastFourDigitsOnly) {
    EXPECT_EQ("************1111", withoutCardNumbers("4111111111111111"));
    EXPECT_EQ("card **** **** **** 1111.", withoutCardNumbers("card 4111 1111 1111 1111."));
    EXPECT_EQ("****-****-****-1111", withoutCardNumbers("4111-1111-1111-1111"));
    EXPECT_EQ("***********0005 ************4444",
              withoutCardNumbers("378282246310005 5555555555554444"));
}

TEST(CardDataMask, TheShortestAndTheLongestNumbersOfASchemeAreFound) {
    EXPECT_EQ("********0009", withoutCardNumbers("500000000009"));
    EXPECT_EQ("***************0005", withoutCardNumbers("5000000000000000005"));
}

TEST(CardDataMask, ANumberInsideALongerRunOfDigitsIsFound) {
    EXPECT_EQ("9************1111", withoutCardNumbers("94111111111111111"));
}

TEST(CardDataMask, OtherNumbersStay) {
    for (const char* text : {"9000000001", "040307953005", "4111111111111112", "21.11.2026", ""})
        EXPECT_EQ(text, withoutCardNumbers(text));
}

TEST(CardDataMask, LastFourOfAShorterTextIsTheText) {
    EXPECT_EQ("1111", lastFour("4111111111111111"));
    EXPECT_EQ("12", lastFour("12"));
}

} // namespace
} // namespace tollvane::charge
