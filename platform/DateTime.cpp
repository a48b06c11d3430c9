#include "platform/DateTime.h"

#include <array>
#include <string>

namespace tollvane {

namespace {

constexpr int kLastYear = 9999;

bool isLeap(int year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int daysIn(int month, int year) {
    constexpr std::array kDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && isLeap(year) ? 29 : kDays[static_cast<std::size_t>(month - 1)];
}

/// Short years as the platform's calendar has them: up to 2049.
int fullYear(int year) {
    if (year >= 100) {
        return year;
    }
    return year < 50 ? 2000 + year : 1900 + year;
}

std::optional<DateTime> dateOf(int year, int month, int day) {
    year = fullYear(year);
    if (month < 1 || month > 12 || year > kLastYear || day < 1 || day > daysIn(month, year)) {
        return std::nullopt;
    }
    return DateTime{year, month, day, 0, 0, 0};
}

struct Numbers {
    std::array<int, 3> values{};
    std::size_t count = 0;
};

/// Numbers parted by single separators, with blanks anywhere between them.
class NumberReader {
public:
    explicit NumberReader(std::string_view text) : text_(text) {}

    std::optional<Numbers> read() {
        Numbers numbers;
        while (numbers.count < numbers.values.size()) {
            if (!readNumber(numbers.values[numbers.count++])) {
                return std::nullopt;
            }
            if (at_ == text_.size()) {
                return numbers;
            }
            if (std::string_view("-/.").find(text_[at_++]) == std::string_view::npos) {
                return std::nullopt;
            }
        }
        return std::nullopt;
    }

private:
    void skipBlanks() {
        while (at_ < text_.size() && (text_[at_] == ' ' || text_[at_] == '\t')) {
            ++at_;
        }
    }

    bool readNumber(int& value) {
        skipBlanks();
        const std::size_t start = at_;
        value = 0;
        for (; at_ < text_.size() && text_[at_] >= '0' && text_[at_] <= '9'; ++at_) {
            if (value <= kLastYear) {
                value = value * 10 + (text_[at_] - '0');
            }
        }
        const bool found = at_ > start;
        skipBlanks();
        return found;
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

/// Places of year, month and day among three numbers.
struct Places {
    std::size_t year;
    std::size_t month;
    std::size_t day;
};
constexpr Places kMonthDayYear{2, 0, 1};
constexpr Places kDayMonthYear{2, 1, 0};
constexpr Places kYearMonthDay{0, 1, 2};
constexpr Places kYearDayMonth{0, 2, 1};
using Orders = std::array<Places, 4>;

/// The orders to try, the locale's own first.
Orders ordersToTry(DateOrder order) {
    switch (order) {
    case DateOrder::dayMonthYear:
        return {kDayMonthYear, kMonthDayYear, kYearMonthDay, kYearDayMonth};
    case DateOrder::yearMonthDay:
        return {kYearMonthDay, kMonthDayYear, kDayMonthYear, kYearDayMonth};
    default: return {kMonthDayYear, kYearMonthDay, kDayMonthYear, kYearDayMonth};
    }
}

std::optional<DateTime> dateOfThree(const Numbers& numbers, DateOrder order) {
    for (const Places& places : ordersToTry(order)) {
        if (auto date = dateOf(numbers.values[places.year], numbers.values[places.month],
                               numbers.values[places.day])) {
            return date;
        }
    }
    return std::nullopt;
}

/// Two numbers name a month: such texts are expiry dates, and "12-27" on a card never means the
/// 27th of this December, which is what the platform would make of it.
std::optional<DateTime> dateOfTwo(const Numbers& numbers) {
    if (auto date = dateOf(numbers.values[1], numbers.values[0], 1)) {
        return date;
    }
    return dateOf(numbers.values[0], numbers.values[1], 1);
}

} // namespace

std::optional<DateTime> dateFromText(std::string_view text, DateOrder order) {
    const auto numbers = NumberReader(text).read();
    if (!numbers) {
        return std::nullopt;
    }
    switch (numbers->count) {
    case 2: return dateOfTwo(*numbers);
    case 3: return dateOfThree(*numbers, order);
    default: return std::nullopt;
    }
}

int monthsBetween(const DateTime& from, const DateTime& to) {
    constexpr int kMonthsInYear = 12;
    return (to.year - from.year) * kMonthsInYear + to.month - from.month;
}

} // namespace tollvane
