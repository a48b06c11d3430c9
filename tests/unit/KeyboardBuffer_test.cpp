#include "entry/KeyboardBuffer.h"

#include <gtest/gtest.h>

#include <string>

namespace tollvane {
namespace {

constexpr std::string_view kCard = "%B4111111111111111^SMITH/JOHN^2712101000000?";

/// The hidden box as the form fills it.
struct Box {
    KeyboardBuffer buffer;
    std::string text;
    std::string track1;
    std::uint64_t now = 5'000'000;

    void type(std::string_view characters) {
        for (const char character : characters) {
            text += character;
            apply(buffer.changed(text, now));
        }
    }
    void timeIsOver(bool reading) { apply(buffer.timeIsOver(text, reading)); }
    void apply(const KeyboardBuffer::Answer& answer) {
        if (answer.text) {
            text = answer.text->view();
        }
        if (!answer.track1.empty()) {
            track1 = answer.track1.view();
        }
    }
};

TEST(KeyboardBuffer, RemembersAnOrdinaryKeyAndEmptiesTheBox) {
    Box box;
    EXPECT_EQ(box.buffer.pendingKey(), 0);

    box.type("a");
    EXPECT_EQ(box.text, "");
    EXPECT_EQ(box.buffer.pendingKey(), 'a');

    box.type("\r");
    EXPECT_EQ(box.buffer.pendingKey(), 13);
}

TEST(KeyboardBuffer, DoesNothingWithAnEmptyBox) {
    KeyboardBuffer buffer;

    const KeyboardBuffer::Answer answer = buffer.changed("", 1);

    EXPECT_FALSE(answer.text.has_value());
    EXPECT_TRUE(answer.track1.empty());
}

TEST(KeyboardBuffer, KeepsNothingOfABoxThatHoldsReturnsOnly) {
    KeyboardBuffer buffer;

    const KeyboardBuffer::Answer answer = buffer.timeIsOver("\r\r", true);

    ASSERT_TRUE(answer.text.has_value());
    EXPECT_TRUE(answer.text->empty());
}

TEST(KeyboardBuffer, TakesACompleteTrackAndEmptiesTheBox) {
    Box box;

    box.type(kCard);

    EXPECT_EQ(box.track1, kCard);
    EXPECT_EQ(box.text, "");
    EXPECT_NE(box.buffer.pendingKey(), '?');
}

TEST(KeyboardBuffer, TakesATrackWhateverStoodBeforeIt) {
    for (const std::string before : {"%", "%a", "%B4111^SM", ";", ";4111=", "%%", "%B%B", "; %"}) {
        Box box;
        box.type(before);

        box.type(kCard);

        EXPECT_EQ(box.track1, kCard) << before;
        EXPECT_EQ(box.text, "") << before;
    }
}

TEST(KeyboardBuffer, KeepsTrackTwoForTwoSeconds) {
    Box box;
    box.type(";4111=2712?");
    EXPECT_EQ(box.text, ";4111=2712?");

    box.now += 2000;
    box.type("\r");
    EXPECT_EQ(box.text, ";4111=2712?\r");

    box.now += 1;
    box.type("\r");
    EXPECT_EQ(box.text, "");
}

TEST(KeyboardBuffer, LosesItsReturnsAfterTwoSeconds) {
    Box box;
    box.type("%B41\r");
    box.now += 2001;

    box.type("1\r1");

    EXPECT_EQ(box.text, "%B4111");
}

TEST(KeyboardBuffer, CountsTheTwoSecondsFromTheFirstCharacter) {
    Box box;
    box.type(";");
    box.now += 1500;
    box.type("1");
    box.now += 501;

    box.type("?");

    EXPECT_EQ(box.text, "");
}

TEST(KeyboardBuffer, CountsAfreshForTheNextText) {
    Box box;
    box.type(";1");
    box.now += 2001;
    box.type("?");
    ASSERT_EQ(box.text, "");

    box.type(";1?");

    EXPECT_EQ(box.text, ";1?");
}

TEST(KeyboardBuffer, CountsAfreshForASwipeBehindOneThatBrokeOff) {
    Box box;
    box.type(";1");
    box.now += 1500;
    box.type("%B5");
    box.now += 1500;

    box.type("\r");

    EXPECT_EQ(box.text, "%B5\r");
}

TEST(KeyboardBuffer, IsEmptiedWhenItsTimeIsOver) {
    Box box;
    box.type("%abc");

    box.timeIsOver(false);

    EXPECT_EQ(box.text, "");
}

TEST(KeyboardBuffer, KeepsAnUnfinishedRecordThatIsStillBeingRead) {
    Box box;
    box.type("%B4111\r");

    box.timeIsOver(true);

    EXPECT_EQ(box.text, "%B4111");
}

TEST(KeyboardBuffer, KeepsTheStartOfARecordBehindWhatAnEarlierOneLeft) {
    Box box;
    box.type(";4111=2912?\r%");

    box.timeIsOver(true);
    box.type("B4111");

    EXPECT_EQ(box.text, "%B4111");
}

TEST(KeyboardBuffer, NeverGrowsWithoutLimit) {
    Box box;

    box.type(";" + std::string(10'000, 'x'));

    EXPECT_LT(box.text.size(), 1'100U);
}

TEST(KeyboardBuffer, LeavesAnEmptyBoxAloneWhenItsTimeIsOver) {
    KeyboardBuffer buffer;

    for (const bool reading : {false, true}) {
        EXPECT_FALSE(buffer.timeIsOver("", reading).text.has_value());
    }
}

TEST(KeyboardBuffer, KeepsExactlyAsMuchAsAReaderCanSend) {
    Box box;
    box.type(";" + std::string(1023, 'x'));
    EXPECT_EQ(box.text.size(), 1024U);

    box.type("x");

    EXPECT_EQ(box.text, "");
}

} // namespace
} // namespace tollvane
