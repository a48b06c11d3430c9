#pragma once

#include "platform/SecretText.h"

namespace tollvane {

/// Recognises what a reader sends besides track 1: the LRC, and tracks 2 and 3 behind track 1 or
/// alone. Keys that may belong to it are held back until that is certain.
class FollowingTracks {
public:
    /// One typed character outside of a track 1 record, Enter included. `keyAscii` becomes 0 when
    /// it is held back or belongs to the reader. Returns what was held back before and turns out to
    /// be ordinary typing, which belongs in front of `keyAscii`.
    SecretText key(int& keyAscii);

    /// A track 1 record has ended: the reader may go on at once.
    void track1Taken();

    /// No key has come for longer than any reader pauses. Returns what was held back and turns out
    /// to be ordinary typing.
    SecretText pause();

    /// The reader may still be sending.
    bool inBurst() const { return inBurst_; }
    bool holding() const { return !held_.empty(); }
    /// What is held back is a track beyond doubt: it follows another one, or begins as track 2 and
    /// has the digits of a card. (Behind a plus sign they may be a telephone number.)
    bool inTrack() const;

private:
    SecretText keyOfBurst(int& keyAscii);
    SecretText keyOfHeld(int& keyAscii);
    void hold(int& keyAscii);
    void trackEnded();
    bool mayContinue(int keyAscii) const;
    bool isTrack() const;
    bool hasDigitsOfACard() const;

    SecretText held_; ///< from a start sentinel on
    bool inBurst_ = false;
    bool lrcMayFollow_ = false;
};

} // namespace tollvane
