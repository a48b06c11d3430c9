// What holds for every sequence of keys, at the state machines that look at them.

#include "entry/FollowingTracks.h"
#include "entry/KeyboardBuffer.h"
#include "entry/MoneyKeyFilter.h"
#include "entry/SwipeParser.h"
#include "entry/Track1.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <algorithm>
#include <random>
#include <string>

namespace tollvane {
namespace {

void expectHolds(const std::string& what, const auto& property) {
    EXPECT_TRUE(rc::check(what, property));
}

const std::string kCard = "%B4111111111111111^SMITH/JOHN^2712101000000?";

/// Keys of which many matter to the parsers.
rc::Gen<std::string> anyKeys() {
    return rc::gen::container<std::string>(
        rc::gen::oneOf(rc::gen::element('%', 'B', '^', '?', ';', '+', '=', 'E', '1', '\r'),
                       rc::gen::inRange<char>(32, 127)));
}

/// The three state machines behind each other, as the form has them.
class Machines : public SwipeClient {
public:
    void recordStarted() override { ++started; }
    void panRead(const SecretText& text) override { pan = text.view(); }
    void nameRead(const std::string& text) override { name = text; }
    void recordEnded(const SecretText& text) override {
        record = text.view();
        following.track1Taken();
    }

    void type(std::string_view keys) {
        for (const char character : keys) {
            key(static_cast<unsigned char>(character));
        }
    }
    void key(int code) {
        remember(static_cast<char>(code));
        if (parser.state() == SwipeParser::State::idle) {
            typed += following.key(code).view();
        }
        if (code == 0) {
            return;
        }
        int givenBack = 0;
        parser.key(code, false, givenBack);
        if (givenBack != 0) {
            if (!following.inBurst()) {
                typed += static_cast<char>(givenBack);
            }
            if (code != 0) {
                typed += following.key(code).view();
            }
        }
        if (code != 0) {
            typed += static_cast<char>(code);
        }
    }
    void pause() {
        if (parser.state() == SwipeParser::State::started && !following.inBurst()) {
            typed += '%';
        }
        parser.reset();
        typed += following.pause().view();
    }

    SwipeParser parser{*this};
    FollowingTracks following;
    KeyboardBuffer buffer;
    std::string bufferText;
    std::string typed;
    std::string pan;
    std::string name;
    std::string record;
    std::string bufferTrack;
    int started = 0;

private:
    void remember(char character) {
        bufferText += character;
        const KeyboardBuffer::Answer answer = buffer.changed(bufferText, now_ += 5);
        if (answer.text) {
            bufferText = answer.text->view();
        }
        if (!answer.track1.empty()) {
            bufferTrack = answer.track1.view();
        }
    }

    std::uint64_t now_ = 0;
};

void expectCleanSwipeIsTaken(Machines& machines) {
    machines.typed.clear();
    machines.type(kCard);
    RC_ASSERT(machines.record == kCard);
    RC_ASSERT(machines.bufferTrack == kCard);
    RC_ASSERT(machines.pan == "4111111111111111");
    RC_ASSERT(machines.name == "JOHN SMITH");
    RC_ASSERT(machines.parser.state() == SwipeParser::State::idle);
}

TEST(TypedKeysProperty, ACleanSwipeIsTakenAfterAnything) {
    expectHolds("never stuck", [] {
        Machines machines;
        machines.type(*anyKeys());
        expectCleanSwipeIsTaken(machines);
    });
}

TEST(TypedKeysProperty, ASwipeLeavesNothingBehindInAnyField) {
    expectHolds("nothing lands", [] {
        Machines machines;
        const std::string lrc = *rc::gen::element<std::string>("", "A", "7", ";", "+", "%", " ");
        const std::string enter = *rc::gen::element<std::string>("", "\r");
        const std::string second =
            *rc::gen::element<std::string>("", ";4111111111111111=2712101000000?", ";E?", ";?");
        const std::string third =
            *rc::gen::element<std::string>("", "+014111111111111111==1?", "+E?", "+?");
        std::string burst = kCard + lrc + enter;
        if (!second.empty()) {
            burst += second + lrc + enter;
        }
        if (!third.empty()) {
            burst += third + lrc + enter;
        }
        machines.type(burst);
        machines.pause();
        RC_ASSERT(machines.typed.empty());
        machines.type("12.50");
        RC_ASSERT(machines.typed == "12.50");
    });
}

TEST(TypedKeysProperty, OrdinaryTypingComesOutAsItWentIn) {
    expectHolds("nothing lost, nothing moved", [] {
        // Everything but what is a swipe by its form: "%B", and a start sentinel with eight digits
        // or a read error up to an end sentinel.
        std::string keys = *anyKeys();
        std::erase(keys, '\r');
        std::erase(keys, 'B');
        std::erase(keys, *rc::gen::element('?', '1'));
        if (keys.find('?') != std::string::npos) {
            std::erase(keys, 'E');
            std::erase_if(keys, [](char c) { return c >= '0' && c <= '9'; });
        }
        Machines machines;
        std::size_t at = 0;
        while (at < keys.size()) {
            const auto count = *rc::gen::inRange<std::size_t>(1, 12);
            machines.type(std::string_view(keys).substr(at, count));
            at += count;
            if (*rc::gen::inRange(0, 3) == 0) {
                machines.pause();
                RC_ASSERT(machines.typed == keys.substr(0, at));
            }
        }
        machines.pause();
        RC_ASSERT(machines.typed == keys);
        RC_ASSERT(machines.started == 0);
    });
}

TEST(TypedKeysProperty, AMillionKeysLeaveNothingStuckAndNothingGrowing) {
    static const std::string likely = "%%B^^??;;+=E0123456789abc \r";
    std::mt19937 random(7);
    Machines machines;
    for (int i = 0; i < 1'000'000; ++i) {
        const bool any = random() % 4 == 0;
        const auto code =
            any ? 1 + random() % 255 : static_cast<unsigned char>(likely[random() % likely.size()]);
        machines.key(static_cast<int>(code));
        if (random() % 64 == 0) {
            machines.pause();
        }
        if (i % 1000 == 0) {
            ASSERT_LE(machines.bufferText.size(), 1024U);
            expectCleanSwipeIsTaken(machines);
        }
    }
}

// The money boxes.

struct Edit {
    std::string text;
    int start = 0;
    int length = 0;

    MoneyEdit now() const { return {text, start, length, '.'}; }
    std::string with(std::string_view typed) const {
        std::string result = text;
        result.replace(static_cast<std::size_t>(start), static_cast<std::size_t>(length), typed);
        return result;
    }
};

long digitsIn(std::string_view text) {
    return std::ranges::count_if(text, [](char c) { return c >= '0' && c <= '9'; });
}

bool keepsTheRule(std::string_view text) {
    const std::string_view number = text.substr(text.starts_with('-') ? 1 : 0);
    return digitsIn(number) <= 7 && std::ranges::count(number, '.') <= 1 &&
           number.find_first_not_of("0123456789.") == std::string_view::npos;
}

/// Every text that the rule allows, made of few different digits.
std::vector<std::string> allowedTexts() {
    std::vector<std::string> texts;
    for (const char* sign : {"", "-"}) {
        for (int digits = 0; digits <= 7; ++digits) {
            const std::string whole(static_cast<std::size_t>(digits), '1');
            texts.push_back(sign + whole);
            for (int point = 0; point <= digits; ++point) {
                texts.push_back(sign +
                                std::string(whole).insert(static_cast<std::size_t>(point), "."));
            }
        }
    }
    return texts;
}

template <class Check>
void forEveryCaretAndSelection(Check&& check) {
    for (const std::string& text : allowedTexts()) {
        const int size = static_cast<int>(text.size());
        for (int start = 0; start <= size; ++start) {
            for (int length = 0; start + length <= size; ++length) {
                check(Edit{text, start, length});
            }
        }
    }
}

TEST(MoneyKeyProperty, WhateverIsTakenKeepsTheRuleAtEveryCaretAndSelection) {
    forEveryCaretAndSelection([](const Edit& edit) {
        for (int key = 32; key < 256; ++key) {
            const char character = static_cast<char>(key);
            const std::string result = edit.with({&character, 1});
            if (judgeMoneyKey(edit.now(), key) == MoneyKey::taken) {
                ASSERT_TRUE(keepsTheRule(result)) << edit.text << " -> " << result;
            }
        }
    });
}

TEST(MoneyKeyProperty, WhateverKeepsTheRuleIsTakenAtEveryCaretAndSelection) {
    forEveryCaretAndSelection([](const Edit& edit) {
        for (const char character : std::string("0123456789.-")) {
            const std::string result = edit.with({&character, 1});
            if (keepsTheRule(result)) {
                ASSERT_EQ(judgeMoneyKey(edit.now(), character), MoneyKey::taken)
                    << edit.text << " -> " << result;
            }
        }
    });
}

TEST(MoneyKeyProperty, PastesAreTakenExactlyWhenTheyKeepTheRule) {
    expectHolds("paste", [] {
        const auto texts = allowedTexts();
        Edit edit{*rc::gen::elementOf(texts), 0, 0};
        const int size = static_cast<int>(edit.text.size());
        edit.start = *rc::gen::inRange(0, size + 1);
        edit.length = *rc::gen::inRange(0, size - edit.start + 1);
        const std::string pasted =
            *rc::gen::container<std::string>(rc::gen::element('1', '2', '.', '-', ' ', '$', ','));
        RC_ASSERT(mayPasteMoney(edit.now(), pasted) == keepsTheRule(edit.with(pasted)));
    });
}

TEST(MoneyKeyProperty, AnySequenceOfKeysKeepsTheRule) {
    expectHolds("typing", [] {
        Edit edit;
        const auto keys = *rc::gen::container<std::string>(
            rc::gen::element('0', '5', '9', '.', '-', 'x', ' ', '\b'));
        for (const char character : keys) {
            if (*rc::gen::inRange(0, 4) == 0) {
                const int size = static_cast<int>(edit.text.size());
                edit.start = *rc::gen::inRange(0, size + 1);
                edit.length = *rc::gen::inRange(0, size - edit.start + 1);
            }
            if (judgeMoneyKey(edit.now(), character) != MoneyKey::taken) {
                continue;
            }
            if (character != '\b') {
                edit.text = edit.with({&character, 1});
                ++edit.start;
            } else if (edit.length > 0) {
                edit.text = edit.with("");
            }
            edit.length = 0;
            RC_ASSERT(keepsTheRule(edit.text));
        }
    });
}

} // namespace
} // namespace tollvane
