#include "entry/SwipeParser.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace tollvane {
namespace {

using State = SwipeParser::State;

/// Writes down what a swipe sets off, and what got past the parser.
class Swiped : public SwipeClient {
public:
    void recordStarted() override { heard += "start "; }
    void panRead(const SecretText& pan) override {
        heard += "pan:" + std::string(pan.view()) + " ";
    }
    void nameRead(const std::string& name) override { heard += "name:" + name + " "; }
    void recordEnded(const SecretText& record) override {
        heard += "end:" + std::string(record.view()) + " ";
        if (onEnd) {
            onEnd();
        }
    }

    void type(std::string_view text) {
        for (const char character : text) {
            key(static_cast<unsigned char>(character));
        }
    }
    void key(int code, bool reset = false) {
        int givenBack = 0;
        parser.key(code, reset, givenBack);
        for (const int passed : {givenBack, code}) {
            if (passed != 0) {
                typed += static_cast<char>(passed);
            }
        }
    }

    SwipeParser parser{*this};
    std::string heard;
    std::string typed;
    std::function<void()> onEnd;
};

constexpr std::string_view kCard = "%B4111111111111111^SMITH/JOHN^2712101000000?";

TEST(SwipeParser, ReadsARecordAndPassesNothing) {
    Swiped swipe;

    swipe.type(kCard);

    EXPECT_EQ(swipe.heard,
              "start pan:4111111111111111 name:JOHN SMITH end:" + std::string(kCard) + " ");
    EXPECT_EQ(swipe.typed, "");
    EXPECT_EQ(swipe.parser.state(), State::idle);
}

TEST(SwipeParser, GoesThroughItsStates) {
    Swiped swipe;
    const auto after = [&swipe](std::string_view text) {
        swipe.type(text);
        return static_cast<int>(swipe.parser.state());
    };
    EXPECT_EQ(after(""), 0);
    EXPECT_EQ(after("%"), 1);
    EXPECT_EQ(after("B"), 2);
    EXPECT_EQ(after("4111"), 2);
    EXPECT_EQ(after("^"), 3);
    EXPECT_EQ(after("A"), 3);
    EXPECT_EQ(after("^"), 5);
    EXPECT_EQ(after("2712"), 5);
    EXPECT_EQ(after("?"), 0);
}

TEST(SwipeParser, PassesOrdinaryKeys) {
    Swiped swipe;

    swipe.type("B4111^?;=+ \b\x1b");

    EXPECT_EQ(swipe.typed, "B4111^?;=+ \b\x1b");
    EXPECT_EQ(swipe.heard, "");
}

TEST(SwipeParser, AlwaysConsumesEnter) {
    Swiped swipe;
    swipe.type("\r");
    swipe.type("a\rb");
    EXPECT_EQ(swipe.typed, "ab");

    swipe.type("%B41\r11^A\r^27\r12?\r");
    EXPECT_EQ(swipe.typed, "ab");
    EXPECT_EQ(swipe.heard, "start pan:4111 name:A end:%B4111^A^2712? ");
}

TEST(SwipeParser, GivesThePercentSignBackBeforeTheCharacterThatFollowed) {
    for (int code = 1; code < 256; ++code) {
        if (code == 'B' || code == '%' || code == '\r') {
            continue;
        }
        Swiped swipe;
        swipe.type("%");
        EXPECT_EQ(swipe.typed, "");
        swipe.key(code);
        EXPECT_EQ(swipe.typed, std::string("%") + static_cast<char>(code)) << code;
        EXPECT_EQ(swipe.parser.state(), State::idle) << code;
        EXPECT_EQ(swipe.heard, "") << code;
    }
}

TEST(SwipeParser, HoldsTheSecondOfTwoPercentSigns) {
    Swiped swipe;

    swipe.type("%%");
    EXPECT_EQ(swipe.typed, "%");
    EXPECT_EQ(swipe.parser.state(), State::started);

    swipe.type("B4111^A^2712?");
    EXPECT_EQ(swipe.typed, "%");
    EXPECT_EQ(swipe.heard, "start pan:4111 name:A end:%B4111^A^2712? ");
}

TEST(SwipeParser, TrimsThePan) {
    Swiped swipe;

    swipe.type("%B  4111 1111 ^A^2712?");

    EXPECT_EQ(swipe.heard, "start pan:4111 1111 name:A end:%B  4111 1111 ^A^2712? ");
}

TEST(SwipeParser, ResetForgetsWhatWasRead) {
    Swiped swipe;
    swipe.type("%B4111");

    swipe.key('x', true);

    EXPECT_EQ(swipe.typed, "x");
    EXPECT_EQ(swipe.parser.state(), State::idle);
    swipe.type(kCard);
    EXPECT_EQ(swipe.typed, "x");
}

TEST(SwipeParser, StartsAfreshWhenTheCardIsSwipedAgainInTheMiddle) {
    for (std::size_t cut = 2; cut < kCard.size(); ++cut) {
        Swiped swipe;
        swipe.type(kCard.substr(0, cut));
        swipe.heard.clear();

        swipe.type(kCard);

        EXPECT_EQ(swipe.heard,
                  "start pan:4111111111111111 name:JOHN SMITH end:" + std::string(kCard) + " ")
            << cut;
        EXPECT_EQ(swipe.typed, "") << cut;
    }
}

TEST(SwipeParser, KeepsARecordOfAnyLengthWhole) {
    Swiped swipe;
    const std::string record = "%B4111^A^2712" + std::string(500, '0') + "?";

    swipe.type(record);

    EXPECT_EQ(swipe.heard, "start pan:4111 name:A end:" + record + " ");
}

TEST(SwipeParser, GivesUpWhatIsNoRecordAnyMore) {
    Swiped swipe;

    swipe.type("%B" + std::string(5000, '0'));

    EXPECT_EQ(swipe.parser.state(), State::idle);
}

TEST(SwipeParser, ReadsOnBehindAnAccountNumberOfTrackTwo) {
    Swiped swipe;
    swipe.parser.startAt(State::account);

    swipe.type("4111=2712?");

    EXPECT_EQ(swipe.typed, "");
    EXPECT_EQ(swipe.heard, "end: ");
    EXPECT_EQ(swipe.parser.state(), State::idle);
}

TEST(SwipeParser, IsReadyForAnythingWhenItCalls) {
    Swiped swipe;
    swipe.onEnd = [&swipe] {
        EXPECT_EQ(swipe.parser.state(), State::idle);
        throw 1;
    };

    EXPECT_ANY_THROW(swipe.type(kCard));

    swipe.onEnd = nullptr;
    swipe.heard.clear();
    swipe.type("a");
    swipe.type(kCard);
    EXPECT_EQ(swipe.typed, "a");
    EXPECT_EQ(swipe.heard,
              "start pan:4111111111111111 name:JOHN SMITH end:" + std::string(kCard) + " ");
}

TEST(SwipeParser, TakesALetterBAloneForNoHeader) {
    for (const std::string before : {"", "B", "%=", "4%1"}) {
        Swiped swipe;
        swipe.parser.startAt(State::account);

        swipe.type(before + "B");

        EXPECT_EQ(swipe.heard, "") << before;
        EXPECT_NE(swipe.parser.state(), State::pan) << before;
    }
}

TEST(SwipeParser, StartsAfreshWhenACardIsSwipedInsteadOfAnAccountNumberOfTrackTwo) {
    for (const std::string before : {"", "4", "4111=27"}) {
        Swiped swipe;
        swipe.parser.startAt(State::account);

        swipe.type(before + std::string(kCard));

        EXPECT_EQ(swipe.heard,
                  "start pan:4111111111111111 name:JOHN SMITH end:" + std::string(kCard) + " ")
            << before;
    }
}

TEST(SwipeParser, GivesUpBehindTheLongestRecordAndNotBefore) {
    Swiped swipe;
    swipe.type("%B" + std::string(4094, '0'));
    EXPECT_EQ(swipe.parser.state(), State::pan);

    swipe.type("0");

    EXPECT_EQ(swipe.parser.state(), State::idle);
}

} // namespace
} // namespace tollvane
