#include "entry/FollowingTracks.h"

#include "entry/Track1.h"

#include <algorithm>
#include <utility>

namespace tollvane {

namespace {

constexpr int kEnter = 13;
constexpr int kFirstPrintable = 32;
/// Characters of track 3, the longer of the two, with sentinels.
constexpr std::size_t kLongestTrack = 107;
/// Fewer digits between the sentinels are somebody's text, not a card.
constexpr int kFewestDigits = 8;
/// Some readers send this instead of a track that they could not read.
constexpr char kReadError = 'E';

bool isDigit(int key) {
    return key >= '0' && key <= '9';
}

bool isStart(int key) {
    return key == track::secondStart || key == track::thirdStart;
}

} // namespace

SecretText FollowingTracks::key(int& keyAscii) {
    const bool lrc = std::exchange(lrcMayFollow_, false);
    if (keyAscii == kEnter) {
        return {};
    }
    if (inBurst_) {
        if (lrc && !isStart(keyAscii) && keyAscii != track::startSentinel &&
            keyAscii >= kFirstPrintable) {
            keyAscii = 0;
            return {};
        }
        return keyOfBurst(keyAscii);
    }
    return keyOfHeld(keyAscii);
}

SecretText FollowingTracks::keyOfBurst(int& keyAscii) {
    if (isStart(keyAscii)) {
        // The one before, if any, was the LRC.
        held_.clear();
        hold(keyAscii);
    } else if (keyAscii == track::startSentinel) {
        held_.clear();
    } else if (held_.empty() || keyAscii < kFirstPrintable || held_.size() >= kLongestTrack) {
        held_.clear();
        inBurst_ = false;
    } else if (keyAscii == track::endSentinel) {
        keyAscii = 0;
        trackEnded();
    } else {
        hold(keyAscii);
    }
    return {};
}

SecretText FollowingTracks::keyOfHeld(int& keyAscii) {
    if (held_.empty()) {
        if (isStart(keyAscii)) {
            hold(keyAscii);
        }
        return {};
    }
    if (keyAscii == track::endSentinel && isTrack()) {
        keyAscii = 0;
        trackEnded();
        return {};
    }
    if (mayContinue(keyAscii)) {
        hold(keyAscii);
        return {};
    }
    SecretText ordinary = std::exchange(held_, SecretText());
    if (isStart(keyAscii)) {
        hold(keyAscii);
    }
    return ordinary;
}

void FollowingTracks::hold(int& keyAscii) {
    held_.append(static_cast<char>(std::exchange(keyAscii, 0)));
}

void FollowingTracks::trackEnded() {
    held_.clear();
    inBurst_ = true;
    lrcMayFollow_ = true;
}

void FollowingTracks::track1Taken() {
    trackEnded();
}

SecretText FollowingTracks::pause() {
    lrcMayFollow_ = false;
    if (std::exchange(inBurst_, false)) {
        // The remains of a swipe that broke off.
        held_.clear();
    }
    return std::exchange(held_, SecretText());
}

bool FollowingTracks::mayContinue(int keyAscii) const {
    const std::string_view held = held_.view();
    if (held.size() > 1 && held[1] == kReadError) {
        return false;
    }
    if (keyAscii == kReadError) {
        return held.size() == 1;
    }
    return (isDigit(keyAscii) || keyAscii == track::secondSeparator) && held.size() < kLongestTrack;
}

bool FollowingTracks::inTrack() const {
    // A sentinel alone may be the LRC of the track before.
    if (held_.size() <= 1) {
        return false;
    }
    return inBurst_ || (held_.view().front() == track::secondStart && hasDigitsOfACard());
}

bool FollowingTracks::isTrack() const {
    const std::string_view held = held_.view();
    return (held.size() > 1 && held[1] == kReadError) || hasDigitsOfACard();
}

bool FollowingTracks::hasDigitsOfACard() const {
    return std::ranges::count_if(held_.view(), isDigit) >= kFewestDigits;
}

} // namespace tollvane
