#pragma once

#include "platform/DateTime.h"

#include <cstdint>
#include <string>

namespace tollvane {

/// The locale database of the system.
class Locale {
public:
    virtual ~Locale() = default;
    virtual std::uint32_t systemDefault() = 0;
    virtual std::uint32_t userDefault() = 0;
    /// Writes at most `size` characters, the closing NUL included, and returns how many; with
    /// `size` 0 it returns how many are needed. 0 means that there is no such item.
    virtual int info(std::uint32_t locale, std::uint32_t item, char* buffer, int size) = 0;
};

class Clock {
public:
    virtual ~Clock() = default;
    virtual DateTime now() = 0;
    /// Milliseconds that only grow; for measuring, not for dates.
    virtual std::uint64_t milliseconds() = 0;
};

class Screen {
public:
    virtual ~Screen() = default;
    virtual int widthInTwips() = 0;
    virtual int heightInTwips() = 0;
};

class Mouse {
public:
    virtual ~Mouse() = default;
    virtual bool leftButtonDown() = 0;
};

class RandomNumbers {
public:
    virtual ~RandomNumbers() = default;
    virtual void seedFromClock() = 0;
    /// A uniform whole number from 0 to `limit` - 1.
    virtual int below(int limit) = 0;
};

class Beeper {
public:
    virtual ~Beeper() = default;
    virtual void beep() = 0;
};

} // namespace tollvane
