#include "entry/SwipeParser.h"

#include "entry/Track1.h"

#include <utility>

namespace tollvane {

namespace {

constexpr int kEnter = 13;
/// No track comes near it: what is longer is not a card, and must not fill the memory.
constexpr std::size_t kLongestRecord = 4096;

} // namespace

void SwipeParser::startAt(State state) {
    state_ = state;
    fieldText_.clear();
    record_.clear();
}

void SwipeParser::key(int& keyAscii, bool reset, int& givenBack) {
    givenBack = 0;
    if (reset) {
        this->reset();
    }
    if (keyAscii == kEnter) {
        keyAscii = 0;
        return;
    }
    switch (state_) {
    case State::idle: idleKey(keyAscii); break;
    case State::started: startedKey(keyAscii, givenBack); break;
    default: recordKey(static_cast<char>(std::exchange(keyAscii, 0))); break;
    }
}

void SwipeParser::idleKey(int& keyAscii) {
    if (keyAscii == track::startSentinel) {
        startAt(State::started);
        record_.append(static_cast<char>(std::exchange(keyAscii, 0)));
    }
}

void SwipeParser::startedKey(int& keyAscii, int& givenBack) {
    if (keyAscii == track::formatCode) {
        keyAscii = 0;
        start();
        return;
    }
    reset();
    givenBack = track::startSentinel;
    idleKey(keyAscii);
}

void SwipeParser::start() {
    startAt(State::pan);
    record_.append(track::startSentinel);
    record_.append(track::formatCode);
    client_.recordStarted();
}

void SwipeParser::recordKey(char character) {
    // A swipe that breaks off is followed by another one: its header starts afresh.
    if (character == track::formatCode && record_.view().ends_with(track::startSentinel)) {
        start();
        return;
    }
    record_.append(character);
    if (record_.size() > kLongestRecord) {
        reset();
    } else if (state_ == State::pan && character == track::separator) {
        endPan();
    } else if (state_ == State::name && character == track::separator) {
        endName();
    } else if (state_ == State::account && character == track::secondSeparator) {
        fieldText_.clear();
        state_ = State::rest;
    } else if (state_ == State::rest && character == track::endSentinel) {
        endRecord();
    } else {
        fieldText_.append(character);
    }
}

void SwipeParser::endPan() {
    const SecretText pan = trimmedSecret(fieldText_);
    fieldText_.clear();
    state_ = State::name;
    client_.panRead(pan);
}

void SwipeParser::endName() {
    const std::string name = holderName(fieldText_.view());
    fieldText_.clear();
    state_ = State::rest;
    client_.nameRead(name);
}

void SwipeParser::endRecord() {
    const std::size_t begin = record_.view().find(track::startSentinel);
    const SecretText record =
        begin == std::string_view::npos ? SecretText() : SecretText(record_.view().substr(begin));
    // The expiry that was collected goes nowhere: the keyboard buffer sets the expiry boxes.
    reset();
    client_.recordEnded(record);
}

} // namespace tollvane
