#include "entry/FollowingTracks.h"

#include <gtest/gtest.h>

#include <string>

namespace tollvane {
namespace {

/// A field that gets what the recogniser lets through.
struct Field {
    FollowingTracks tracks;
    std::string typed;

    void type(std::string_view text) {
        for (const char character : text) {
            int key = static_cast<unsigned char>(character);
            typed += tracks.key(key).view();
            if (key != 0) {
                typed += static_cast<char>(key);
            }
        }
    }
    void pause() { typed += tracks.pause().view(); }
};

constexpr std::string_view kTrack2 = ";4111111111111111=27121010000000000?";
constexpr std::string_view kTrack3 = "+014111111111111111=7247800=000000000?";

TEST(FollowingTracks, SwallowsTracksTwoAndThreeBehindTrackOne) {
    for (const std::string lrc : {"", "A", "5", ";", "+", "?", " "}) {
        for (const std::string enter : {"", "\r"}) {
            Field field;
            field.tracks.track1Taken();
            for (const std::string_view track : {kTrack2, kTrack3}) {
                field.type(lrc);
                field.type(enter);
                field.type(track);
            }
            field.type(lrc);
            field.pause();
            std::erase(field.typed, '\r');
            EXPECT_EQ(field.typed, "") << lrc << enter;
            EXPECT_FALSE(field.tracks.inBurst());
        }
    }
}

TEST(FollowingTracks, SwallowsTrackTwoThatComesAlone) {
    for (const std::string_view track : {kTrack2, kTrack3, std::string_view(";E?")}) {
        for (const std::string lrc : {"", "7"}) {
            Field field;
            field.type(track);
            field.type(lrc);
            field.pause();
            EXPECT_EQ(field.typed, "");
        }
    }
}

TEST(FollowingTracks, SwallowsOneCharacterBehindTheEndSentinelAndNoMore) {
    Field field;
    field.tracks.track1Taken();

    field.type("712.50");

    EXPECT_EQ(field.typed, "12.50");
    EXPECT_FALSE(field.tracks.inBurst());
}

TEST(FollowingTracks, LetsEverythingThroughAfterAPause) {
    Field field;
    field.tracks.track1Taken();
    field.pause();

    field.type("12.50");

    EXPECT_EQ(field.typed, "12.50");
}

TEST(FollowingTracks, LetsEditingKeysThroughBehindTheEndSentinel) {
    Field field;
    field.tracks.track1Taken();

    field.type("\b");

    EXPECT_EQ(field.typed, "\b");
}

TEST(FollowingTracks, GivesBackWhatCannotBeATrack) {
    for (const std::string text :
         {"; ", ";a", ";;", "+;", ";+", "++", ";5 pcs", "+1 (555) 123-4567", ";=x", ";12345\b",
          "a;b;c+d", ";?", "+1234567?", ";Ex", ";E5", ";EE", "%;%"}) {
        Field field;
        field.type(text);
        field.pause();
        EXPECT_EQ(field.typed, text);
    }
}

TEST(FollowingTracks, HoldsBackOnlyWhileItMayBeATrack) {
    Field field;
    field.type("x;12");
    EXPECT_EQ(field.typed, "x");

    field.type("b");

    EXPECT_EQ(field.typed, "x;12b");
    EXPECT_FALSE(field.tracks.holding());
}

TEST(FollowingTracks, GivesBackWhatIsHeldWhenTheKeysPause) {
    for (const std::string text : {";", "+", ";5", "+15551234567", ";12345678=1"}) {
        Field field;
        field.type(text);
        EXPECT_EQ(field.typed, "");

        field.pause();

        EXPECT_EQ(field.typed, text);
        EXPECT_FALSE(field.tracks.holding());
    }
}

TEST(FollowingTracks, KnowsATrackBehindAnotherOneByItsFirstDigit) {
    Field field;
    field.tracks.track1Taken();
    field.type(";");
    EXPECT_FALSE(field.tracks.inTrack()) << "it may be the LRC";

    field.type("4");

    EXPECT_TRUE(field.tracks.inTrack());
    field.type("111111111111111=2712?");
    EXPECT_FALSE(field.tracks.inTrack());
}

TEST(FollowingTracks, KnowsATrackThatComesAloneByTheDigitsOfACard) {
    Field field;
    field.type(";4111111");
    EXPECT_FALSE(field.tracks.inTrack());

    field.type("1");

    EXPECT_TRUE(field.tracks.inTrack());
}

TEST(FollowingTracks, TakesNoTelephoneNumberForATrack) {
    Field field;

    field.type("+15551234567");

    EXPECT_FALSE(field.tracks.inTrack());
}

TEST(FollowingTracks, DropsTheRemainsOfASwipeThatBrokeOff) {
    Field field;
    field.tracks.track1Taken();
    field.type(";411111111");

    field.pause();

    EXPECT_EQ(field.typed, "");
    field.type("5");
    EXPECT_EQ(field.typed, "5");
}

TEST(FollowingTracks, NeverHoldsMoreThanATrack) {
    Field field;
    const std::string digits = ";" + std::string(500, '1');

    field.type(digits);
    EXPECT_EQ(field.typed, digits);

    field.typed.clear();
    field.tracks.track1Taken();
    field.type(digits);
    EXPECT_LT(field.typed.size(), digits.size());
    EXPECT_FALSE(field.tracks.inBurst());
}

TEST(FollowingTracks, OfTheGreatestLengthAreStillTaken) {
    const std::string longest = ";" + std::string(106, '1');
    Field behindTrack1;
    behindTrack1.tracks.track1Taken();
    behindTrack1.type(longest);
    EXPECT_EQ(behindTrack1.typed, "");
    EXPECT_TRUE(behindTrack1.tracks.inBurst());
    behindTrack1.type("2");
    EXPECT_EQ(behindTrack1.typed, "2");
    EXPECT_FALSE(behindTrack1.tracks.inBurst());

    Field alone;
    alone.type(longest);
    EXPECT_EQ(alone.typed, "");
    alone.type("2");
    EXPECT_EQ(alone.typed, longest + "2");
}

TEST(FollowingTracks, MayHoldBlanksBehindTrackOne) {
    Field field;
    field.tracks.track1Taken();

    field.type(";4111 1111 1111?");

    EXPECT_EQ(field.typed, "");
    EXPECT_TRUE(field.tracks.inBurst());
}

TEST(FollowingTracks, LeavesStartSentinelsOfTrackOneToOthers) {
    Field field;
    field.tracks.track1Taken();

    field.type("%");

    EXPECT_EQ(field.typed, "%");
    EXPECT_TRUE(field.tracks.inBurst());
}

} // namespace
} // namespace tollvane
