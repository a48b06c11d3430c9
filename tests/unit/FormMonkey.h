#pragma once

#include "tests/scenarios/Till.h"

#include <cstdint>
#include <span>
#include <string>

namespace tollvane::test {

/// An operator without a plan: plays bytes as keystrokes, carets, selections, pastes, focus
/// changes, pauses and swipes on the transaction form, and looks after each whether the form still
/// keeps its promises. Characters below 128 are typed as they are, which makes its scripts easy to
/// write.
class FormMonkey {
public:
    FormMonkey();

    /// Plays a script from a cleared form and ends it with a clean swipe, which must be taken.
    /// Returns what went wrong first; empty when nothing did.
    std::string play(std::span<const std::uint8_t> script);

    /// Keys that were pressed so far, over all scripts.
    std::uint64_t keystrokes() const { return keystrokes_; }

private:
    void startAfresh();
    void step();
    void act(std::uint8_t byte);
    void type(std::string_view keys);
    void key(int code, int shift = 0);
    void changeFocus(std::uint8_t which);
    void select();
    void paste(std::uint8_t which);
    void leaveButtons();
    std::uint8_t next();

    void look();
    void lookAtMoney(const char* name);
    void lookAtCharacters();
    void lookAtBoxes();
    void expectCleanSwipeIsTaken();
    void complain(const std::string& about);

    Till till_;
    std::span<const std::uint8_t> rest_;
    std::string complaint_;
    /// A record was begun that the script goes on with: number and name are whatever it says.
    bool ownRecord_ = false;
    char lastKey_ = 0;
    std::uint64_t keystrokes_ = 0;
};

} // namespace tollvane::test
