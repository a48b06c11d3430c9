// Keys at the state machines that read cards, and whole texts at the one-shot parser.

#include "entry/FollowingTracks.h"
#include "entry/KeyboardBuffer.h"
#include "entry/SwipeParser.h"
#include "entry/Track1.h"

#include <cstdlib>
#include <string>

namespace {

using namespace tollvane;

constexpr std::string_view kCard = "%B4111111111111111^SMITH/JOHN^2712101000000?";

class Reader : public SwipeClient {
public:
    void recordStarted() override {}
    void panRead(const SecretText& /*pan*/) override {}
    void nameRead(const std::string& /*name*/) override {}
    void recordEnded(const SecretText& text) override {
        record = text;
        following.track1Taken();
    }

    void key(int code) {
        if (parser.state() == SwipeParser::State::idle) {
            following.key(code);
        }
        int givenBack = 0;
        if (code != 0) {
            parser.key(code, false, givenBack);
        }
        if (givenBack != 0 && code != 0) {
            following.key(code);
        }
    }
    void remember(char character, std::uint64_t now) {
        typed += character;
        const KeyboardBuffer::Answer answer = buffer.changed(typed, now);
        if (answer.text) {
            typed = answer.text->view();
        }
        if (!answer.track1.empty()) {
            bufferRecord = answer.track1;
            parseTrack1(answer.track1.view());
        }
    }

    SwipeParser parser{*this};
    FollowingTracks following;
    KeyboardBuffer buffer;
    std::string typed;
    SecretText record;
    SecretText bufferRecord;
};

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string script(reinterpret_cast<const char*>(data), size);
    parseTrack1(script);
    isCompleteTrack1(script);
    Reader reader;
    std::uint64_t now = 0;
    for (const char character : script + std::string(kCard)) {
        now += 7;
        reader.remember(character, now);
        reader.key(static_cast<unsigned char>(character));
    }
    require(reader.record.view() == kCard);
    require(reader.bufferRecord.view() == kCard);
    require(reader.parser.state() == SwipeParser::State::idle);
    return 0;
}
