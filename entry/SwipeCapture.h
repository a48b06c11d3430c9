#pragma once

#include "entry/ChargeInfoControls.h"
#include "entry/ExpiryBoxes.h"
#include "entry/FollowingTracks.h"
#include "entry/KeyboardBuffer.h"
#include "entry/SwipeParser.h"
#include "platform/Desktop.h"

#include <functional>
#include <string_view>

namespace tollvane {

/// Takes card swipes out of the keys that reach the transaction form and fills the card fields from
/// them. Every other key goes on to its control, those that were held back for a moment included.
class SwipeCapture : private SwipeClient {
public:
    /// Milliseconds without a key after which a reader has certainly ended: readers pause 20 ms at
    /// the most.
    static constexpr int readerPause = 300;
    /// The same for a track that is being read, where giving up too early would let the rest of the
    /// card land in a field.
    static constexpr int recordPause = 2000;

    /// What the form does at the two ends of a record.
    struct Reactions {
        std::function<void()> recordStarted; ///< empties the entry
        std::function<void()> recordEnded;   ///< moves the focus on
    };

    /// All arguments outlive the object.
    SwipeCapture(const Desktop& desktop, Form& form, ChargeInfoControls& controls,
                 ExpiryBoxes& expiry, Reactions reactions);

    /// A key that the form sees before its controls. Becomes 0 when it is held back or belongs to a
    /// swipe.
    void keyPressed(int& keyAscii);
    /// Something happens in the field where keys were held back: they are ordinary typing now.
    void settle();
    /// `txtKbBuffer` has changed.
    void bufferChanged();
    /// No key has come for as long as `tmrSwipe` was told to wait.
    void keysPaused();
    /// `txtKbBuffer` has kept its text for long enough.
    void bufferTimeIsOver();

    /// The entry is over: what the reader sent behind its track 1 goes with it. A record that is
    /// being read stays.
    void forget();

    /// A reader may still be sending.
    bool inBurst() const { return parser_.reading() || following_.inBurst(); }
    /// The form's last key that belongs to no track.
    int pendingKey() const { return buffer_.pendingKey(); }

private:
    void bytePressed(int& keyAscii);
    void recordStarted() override;
    void panRead(const SecretText& pan) override;
    void nameRead(const std::string& name) override;
    void recordEnded(const SecretText& record) override;

    /// Puts the key into the keyboard buffer and gives it to the parsers, which get it also when
    /// the buffer fails.
    void read(int& keyAscii);
    void remember(int keyAscii);
    void route(int& keyAscii);
    bool holding() const;
    TextBox* activeField();
    void enterHeld(std::string_view characters);
    void waitForPause();
    void take(const SecretText& track1);
    void apply(const KeyboardBuffer::Answer& answer);

    Desktop desktop_;
    Form& form_;
    ChargeInfoControls& controls_;
    ExpiryBoxes& expiry_;
    Reactions reactions_;
    SwipeParser parser_{*this};
    FollowingTracks following_;
    KeyboardBuffer buffer_;
    TextBox* field_ = nullptr; ///< where the keys that are held back were typed
};

} // namespace tollvane
