#include "entry/Track1.h"

#include <gtest/gtest.h>

namespace tollvane {
namespace {

std::string panOf(std::string_view text) {
    return std::string(parseTrack1(text).pan.view());
}

TEST(Track1, IsTakenApartAtItsSeparators) {
    const Track1 card = parseTrack1("%B4111111111111111^SMITH/JOHN^2712101000000?");

    EXPECT_EQ(card.pan.view(), "4111111111111111");
    EXPECT_EQ(card.name, "JOHN SMITH");
    EXPECT_EQ(card.expiry, "2712");
}

TEST(Track1, FormatCodeMayBeASmallLetter) {
    EXPECT_EQ(panOf("%b4111111111111111^SMITH/JOHN^2712101?"), "4111111111111111");
}

TEST(Track1, WithoutHeaderGivesNothing) {
    for (const char* text : {"", "%", "%?", "B4111^A^2712?", "%A4111^A^2712?", ";4111=2712?"}) {
        const Track1 card = parseTrack1(text);
        EXPECT_TRUE(card.pan.empty()) << text;
        EXPECT_EQ(card.name, "") << text;
        EXPECT_EQ(card.expiry, "") << text;
    }
}

TEST(Track1, WithoutEndSentinelGivesNothing) {
    EXPECT_EQ(panOf("%B4111111111111111^SMITH/JOHN^2712101"), "");
}

TEST(Track1, EndsBehindTheCharacterThatFollowsTheEndSentinel) {
    const Track1 card = parseTrack1("%B4111^SMITH/JOHN^27?X;4111=2712?");

    EXPECT_EQ(card.pan.view(), "4111");
    EXPECT_EQ(card.expiry, "27?X");
}

TEST(Track1, MissingPiecesAreEmpty) {
    EXPECT_EQ(parseTrack1("%B?").name, "");
    EXPECT_EQ(parseTrack1("%B4111?").expiry, "");
    EXPECT_EQ(parseTrack1("%B^^?").expiry, "?");
}

TEST(Track1, IsCompleteWithBothSeparatorsBeforeTheEndSentinel) {
    EXPECT_TRUE(isCompleteTrack1("%B4111^SMITH/JOHN^2712?"));
    EXPECT_TRUE(isCompleteTrack1("%B^^?"));
    EXPECT_FALSE(isCompleteTrack1("%B4111^SMITH/JOHN^2712"));
    EXPECT_FALSE(isCompleteTrack1("%B4111^SMITH?^2712"));
    EXPECT_FALSE(isCompleteTrack1("4111^SMITH/JOHN^2712?"));
}

TEST(HolderName, PutsWhatFollowsTheFirstSlashInFront) {
    EXPECT_EQ(holderName("SMITH/JOHN"), "JOHN SMITH");
    EXPECT_EQ(holderName("SMITH/JOHN  "), "JOHN SMITH");
    EXPECT_EQ(holderName("SMITH/ JOHN Q"), "JOHN Q SMITH");
    EXPECT_EQ(holderName("SMITH/JOHN/MR"), "JOHN/MR SMITH");
    EXPECT_EQ(holderName("SMITH/"), " SMITH");
}

TEST(HolderName, WithoutASlashStaysAsItIs) {
    EXPECT_EQ(holderName("JOHN SMITH"), "JOHN SMITH");
    EXPECT_EQ(holderName(""), "");
}

TEST(TrimmedSecret, LosesItsOuterBlanks) {
    EXPECT_EQ(trimmedSecret(SecretText("  41 11 ")).view(), "41 11");
    EXPECT_EQ(trimmedSecret(SecretText("   ")).view(), "");
    EXPECT_EQ(trimmedSecret(SecretText()).view(), "");
}

} // namespace
} // namespace tollvane
