#pragma once

#include "platform/SecretText.h"

#include <cstdint>
#include <string>

namespace tollvane {

/// What the characters of a swipe set off as they arrive. The parser is in its new state before it
/// calls, so that a call may raise or be followed by any other key.
class SwipeClient {
public:
    virtual ~SwipeClient() = default;
    /// Start sentinel and format code have arrived.
    virtual void recordStarted() = 0;
    virtual void panRead(const SecretText& pan) = 0;
    virtual void nameRead(const std::string& name) = 0;
    /// The end sentinel has arrived. `record` runs from its start sentinel through its end
    /// sentinel; it is empty when there was no start sentinel.
    virtual void recordEnded(const SecretText& record) = 0;
};

/// Reads the track 1 record of a keyboard-wedge reader, key by key.
class SwipeParser {
public:
    enum class State : std::int16_t {
        idle = 0,
        started = 1, ///< a start sentinel is held back: swipe or ordinary typing
        pan = 2,
        name = 3,
        account = 4, ///< up to "="; only entered by `startAt`
        rest = 5,    ///< expiry and further data, up to the end sentinel
    };

    /// `client` outlives the parser.
    explicit SwipeParser(SwipeClient& client) : client_(client) {}

    /// One typed character. `keyAscii` becomes 0 when it is consumed. `reset` first forgets what
    /// was read so far. `givenBack` receives the start sentinel that was held back and turns out to
    /// be ordinary typing, which belongs in front of `keyAscii`; else 0.
    void key(int& keyAscii, bool reset, int& givenBack);

    void startAt(State state);
    void reset() { startAt(State::idle); }
    State state() const { return state_; }
    /// Characters of a record are being swallowed.
    bool reading() const { return state_ >= State::pan; }

private:
    void idleKey(int& keyAscii);
    void startedKey(int& keyAscii, int& givenBack);
    void recordKey(char character);
    void start();
    void endPan();
    void endName();
    void endRecord();

    SwipeClient& client_;
    State state_ = State::idle;
    SecretText fieldText_;
    SecretText record_;
};

} // namespace tollvane
