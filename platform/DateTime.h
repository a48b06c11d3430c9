#pragma once

#include <compare>
#include <optional>
#include <string_view>

namespace tollvane {

/// A local date and time of day, Gregorian, to the second.
struct DateTime {
    int year = 1899;
    int month = 12;
    int day = 30;
    int hour = 0;
    int minute = 0;
    int second = 0;

    friend auto operator<=>(const DateTime&, const DateTime&) = default;
};

/// Order in which the locale writes the parts of a short date.
enum class DateOrder { monthDayYear = 0, dayMonthYear = 1, yearMonthDay = 2 };

/// The date that a text stands for, or nothing when it is no valid date. Understands numbers
/// separated by "-", "/" or "." in the locale's order (falling back to an order in which they do
/// make a date) and two numbers as month and year ("3-2027" and "2027-3" are 1 March 2027). Years
/// from 50 to 99 mean 19xx, smaller ones 20xx.
std::optional<DateTime> dateFromText(std::string_view text, DateOrder order);

/// Calendar-month boundaries crossed from one date to the other; negative when `to` lies earlier.
int monthsBetween(const DateTime& from, const DateTime& to);

} // namespace tollvane
