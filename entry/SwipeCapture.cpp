#include "entry/SwipeCapture.h"

#include "entry/Track1.h"
#include "entry/TypedCharacter.h"
#include "platform/Letters.h"
#include "platform/Text.h"

#include <algorithm>
#include <utility>

namespace tollvane {

namespace {

constexpr std::size_t kExpiryLength = 4;
constexpr int kNoTrackCharacter = 0x7F;

/// A key that is judged in another one's place: when it is swallowed, so is the other one, also
/// when the judging fails.
class StandIn {
public:
    StandIn(int& original, int key) : original_(original), key_(key) {}
    StandIn(const StandIn&) = delete;
    StandIn& operator=(const StandIn&) = delete;
    ~StandIn() {
        if (key_ == 0) {
            original_ = 0;
        }
    }
    int& key() { return key_; }

private:
    int& original_;
    int key_;
};

void restart(Timer& timer, int interval) {
    if (timer.interval() != interval) {
        timer.setInterval(interval);
    }
    timer.setEnabled(true);
}

/// Value of two digits, 0 when they are none.
int twoDigits(std::string_view text) {
    const bool digits = std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
    return digits ? (text[0] - '0') * 10 + (text[1] - '0') : 0;
}

} // namespace

SwipeCapture::SwipeCapture(const Desktop& desktop, Form& form, ChargeInfoControls& controls,
                           ExpiryBoxes& expiry, Reactions reactions)
    : desktop_(desktop), form_(form), controls_(controls), expiry_(expiry),
      reactions_(std::move(reactions)) {}

void SwipeCapture::keyPressed(int& keyAscii) {
    if (keyAscii == 0) {
        return; // a key of an input method, without a character of its own
    }
    if (keyAscii <= kLargestByte) {
        bytePressed(keyAscii);
        return;
    }
    // No reader sends characters of two bytes: the key counts as one that continues no track.
    StandIn standIn(keyAscii, kNoTrackCharacter);
    bytePressed(standIn.key());
}

void SwipeCapture::bytePressed(int& keyAscii) {
    try {
        read(keyAscii);
    } catch (...) {
        // Whatever went wrong, a character of a card must not land in a field.
        keyAscii = inBurst() ? 0 : keyAscii;
        waitForPause();
        throw;
    }
    waitForPause();
}

void SwipeCapture::read(int& keyAscii) {
    try {
        remember(keyAscii);
    } catch (...) {
        // The record is read to its end all the same; the buffer, which lacks a key, is no use.
        controls_.txtKbBuffer.wipeText();
        route(keyAscii);
        throw;
    }
    route(keyAscii);
}

bool SwipeCapture::holding() const {
    return parser_.state() == SwipeParser::State::started || following_.holding();
}

TextBox* SwipeCapture::activeField() {
    return dynamic_cast<TextBox*>(form_.activeControl());
}

void SwipeCapture::route(int& keyAscii) {
    if (!holding()) {
        field_ = activeField();
    } else if (field_ != activeField()) {
        settle();
        field_ = activeField();
    }
    if (parser_.state() == SwipeParser::State::idle) {
        const SecretText ordinary = following_.key(keyAscii);
        enterHeld(ordinary.view());
        if (keyAscii == 0) {
            return;
        }
    }
    int givenBack = 0;
    parser_.key(keyAscii, false, givenBack);
    if (givenBack != 0) {
        // In a burst it was the LRC.
        if (!following_.inBurst()) {
            const char character = static_cast<char>(givenBack);
            enterHeld({&character, 1});
        }
        if (keyAscii != 0) {
            enterHeld(following_.key(keyAscii).view());
        }
    }
}

void SwipeCapture::enterHeld(std::string_view characters) {
    for (const char character : characters) {
        if (field_ != nullptr) {
            enterTyped(*field_, character);
        }
    }
}

void SwipeCapture::settle() {
    if (parser_.state() == SwipeParser::State::started) {
        parser_.reset();
        const char character = track::startSentinel;
        if (!following_.inBurst()) {
            enterHeld({&character, 1});
        }
    } else if (!following_.inBurst()) {
        enterHeld(following_.pause().view());
    }
}

void SwipeCapture::waitForPause() {
    Timer& timer = controls_.tmrSwipe;
    try {
        if (parser_.reading() || following_.inTrack()) {
            restart(timer, recordPause);
        } else if (holding() || following_.inBurst()) {
            restart(timer, readerPause);
        } else if (timer.enabled()) {
            timer.setEnabled(false);
        }
    } catch (...) {
        // Nobody may tell when the reader has ended: what is typed next is none of its characters.
        if (following_.inBurst()) {
            following_.pause();
        }
        throw;
    }
}

void SwipeCapture::keysPaused() {
    const bool brokeOff = parser_.reading();
    if (brokeOff) {
        parser_.reset();
    }
    settle();
    following_.pause();
    // Last: a control that cannot be changed must not cost the first key of what is typed next.
    if (brokeOff) {
        controls_.txtKbBuffer.wipeText();
    }
    controls_.tmrSwipe.setEnabled(false);
}

void SwipeCapture::remember(int keyAscii) {
    SecretText keys = controls_.txtKbBuffer.secretText();
    keys.append(static_cast<char>(keyAscii));
    controls_.txtKbBuffer.setText(keys.view());
}

void SwipeCapture::bufferChanged() {
    const SecretText keys = controls_.txtKbBuffer.secretText();
    Timer& timer = controls_.tmrKbBuffer;
    if (keys.empty()) {
        if (timer.enabled()) {
            timer.setEnabled(false);
        }
        buffer_.changed({}, 0);
        return;
    }
    const KeyboardBuffer::Answer answer =
        buffer_.changed(keys.view(), desktop_.clock.milliseconds());
    if (!answer.text && !timer.enabled()) {
        timer.setEnabled(true);
    }
    apply(answer);
}

void SwipeCapture::bufferTimeIsOver() {
    const SecretText keys = controls_.txtKbBuffer.secretText();
    if (keys.empty()) {
        controls_.tmrKbBuffer.setEnabled(false);
        return;
    }
    // The start sentinel, too, may be the first character of a record.
    apply(buffer_.timeIsOver(keys.view(), parser_.state() != SwipeParser::State::idle));
}

void SwipeCapture::forget() {
    if (!inBurst()) {
        controls_.txtKbBuffer.wipeText();
    }
}

void SwipeCapture::apply(const KeyboardBuffer::Answer& answer) {
    if (answer.text) {
        TextBox& box = controls_.txtKbBuffer;
        // A single key is no secret; what looked like a track is.
        if (answer.text->empty() && box.secretText().size() > 1) {
            box.wipeText();
        } else {
            box.setText(answer.text->view());
        }
    }
    if (!answer.track1.empty()) {
        take(answer.track1);
    }
}

void SwipeCapture::take(const SecretText& track1) {
    const Track1 card = parseTrack1(track1.view());
    controls_.txtCardName.setText(card.name);
    controls_.txtCardNumber.setText(trimmedSecret(card.pan).view());
    if (card.expiry.size() == kExpiryLength) {
        const std::string_view expiry(card.expiry);
        expiry_.select(twoDigits(expiry.substr(2)), twoDigits(expiry.substr(0, 2)));
    }
    controls_.txtMagStripe.setText(track1.view());
}

void SwipeCapture::recordStarted() {
    reactions_.recordStarted();
}

void SwipeCapture::panRead(const SecretText& pan) {
    controls_.txtCardNumber.setText(pan.view());
}

void SwipeCapture::nameRead(const std::string& name) {
    controls_.txtCardName.setText(name);
}

void SwipeCapture::recordEnded(const SecretText& record) {
    following_.track1Taken();
    if (!record.empty()) {
        controls_.txtMagStripe.setText(record.view());
        desktop_.beeper.beep();
    }
    reactions_.recordEnded();
}

} // namespace tollvane
