#include "tests/desktop/FakeClock.h"

#include <algorithm>
#include <chrono>

namespace tollvane::test {

namespace {

constexpr int kMonths = 12;

int daysOfMonth(int year, int month) {
    using namespace std::chrono;
    const year_month_day_last last = std::chrono::year(year) /
                                     std::chrono::month(static_cast<unsigned>(month)) /
                                     std::chrono::last;
    return static_cast<int>(static_cast<unsigned>(last.day()));
}

} // namespace

DateTime FakeClock::now() {
    using namespace std::chrono;
    const sys_days startDay = year(start_.year) / month(static_cast<unsigned>(start_.month)) /
                              day(static_cast<unsigned>(start_.day));
    const sys_seconds moment = startDay + hours(start_.hour) + minutes(start_.minute) +
                               seconds(start_.second) +
                               duration_cast<seconds>(std::chrono::milliseconds(sinceStart_));
    const sys_days today = floor<days>(moment);
    const year_month_day date(today);
    const hh_mm_ss time(moment - today);
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count()),
            static_cast<int>(time.seconds().count())};
}

void FakeClock::set(const DateTime& now) {
    start_ = now;
    sinceStart_ = 0;
}

void FakeClock::moveMonths(int months) {
    DateTime moved = now();
    const int total = moved.year * kMonths + (moved.month - 1) + months;
    moved.year = total / kMonths;
    moved.month = total % kMonths + 1;
    moved.day = std::min(moved.day, daysOfMonth(moved.year, moved.month));
    set(moved);
}

void FakeClock::advance(std::uint64_t milliseconds) {
    sinceStart_ += milliseconds;
    milliseconds_ += milliseconds;
}

} // namespace tollvane::test
