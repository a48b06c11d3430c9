#pragma once

#include "platform/Surroundings.h"

#include <deque>

namespace tollvane::test {

/// 1024 by 768 pixels at 96 dots per inch unless set otherwise.
class FakeScreen : public Screen {
public:
    int widthInTwips() override { return width; }
    int heightInTwips() override { return height; }

    int width = 15'360;
    int height = 11'520;
};

class FakeMouse : public Mouse {
public:
    bool leftButtonDown() override { return down; }

    bool down = false;
};

/// Gives the planned numbers first, then 0, 1, 2 ... so that every value shows where it went.
class FakeRandom : public RandomNumbers {
public:
    void seedFromClock() override { ++seeds; }
    int below(int limit) override {
        ++asked;
        int number = next_++;
        if (!planned.empty()) {
            number = planned.front();
            planned.pop_front();
        }
        return number % limit;
    }

    std::deque<int> planned;
    int seeds = 0;
    int asked = 0;

private:
    int next_ = 0;
};

class FakeBeeper : public Beeper {
public:
    void beep() override { ++beeps; }

    int beeps = 0;
};

} // namespace tollvane::test
