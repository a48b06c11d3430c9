// The time of day, as the component needs it.
#pragma once

#include <cstdint>
#include <string>

namespace tollvane::charge {

// Local time of the till, and the same instant as seconds since 1970 (UTC).
struct Moment {
    int year = 1970;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
    std::int64_t epochSeconds = 0;

    // "20261121"
    std::string dayText() const;
    // "2026-11-21"
    std::string dateText() const;
    // "09:05:03"
    std::string timeText() const;
};

class Clock {
public:
    virtual ~Clock() = default;
    virtual Moment now() = 0;
};

} // namespace tollvane::charge
