#pragma once

#include "platform/Surroundings.h"

#include <random>

namespace tollvane::win32 {

class Win32Locale final : public Locale {
public:
    std::uint32_t systemDefault() override;
    std::uint32_t userDefault() override;
    int info(std::uint32_t locale, std::uint32_t item, char* buffer, int size) override;
};

class Win32Clock final : public Clock {
public:
    DateTime now() override;
    std::uint64_t milliseconds() override;
};

/// The primary screen.
class Win32Screen final : public Screen {
public:
    int widthInTwips() override;
    int heightInTwips() override;
};

class Win32Mouse final : public Mouse {
public:
    bool leftButtonDown() override;
};

class Win32RandomNumbers final : public RandomNumbers {
public:
    void seedFromClock() override;
    int below(int limit) override;

private:
    std::minstd_rand engine_;
};

class Win32Beeper final : public Beeper {
public:
    void beep() override;
};

} // namespace tollvane::win32
