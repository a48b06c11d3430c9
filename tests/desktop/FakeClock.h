#pragma once

#include "platform/Surroundings.h"

namespace tollvane::test {

/// A clock that stands still until it is moved, by milliseconds or by months.
class FakeClock : public Clock {
public:
    DateTime now() override;
    std::uint64_t milliseconds() override { return milliseconds_; }

    /// Jumps to a date; the milliseconds do not notice.
    void set(const DateTime& now);
    /// Moves the date by calendar months (negative: back), keeping the day where the month has it.
    void moveMonths(int months);
    /// Lets time pass, for the date and for the milliseconds.
    void advance(std::uint64_t milliseconds);

private:
    DateTime start_{2026, 11, 21, 9, 5, 3};
    std::uint64_t sinceStart_ = 0; ///< milliseconds since `start_` was set
    std::uint64_t milliseconds_ = 1'000;
};

} // namespace tollvane::test
