#include "platform/DateTime.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <string>

namespace tollvane {
namespace {

void expectHolds(const std::string& what, const auto& property) {
    EXPECT_TRUE(rc::check(what, property));
}

TEST(DateTimeProperty, FullDatesReadBackInEveryOrder) {
    expectHolds("date round trip", [] {
        const int year = *rc::gen::inRange(100, 10'000);
        const int month = *rc::gen::inRange(1, 13);
        const int day = *rc::gen::inRange(1, 29);
        const DateTime date{year, month, day, 0, 0, 0};
        const std::string y = std::to_string(year);
        const std::string m = std::to_string(month);
        const std::string d = std::to_string(day);
        const std::string mark = *rc::gen::element<std::string>("-", "/", ".", " - ");
        RC_ASSERT(dateFromText(m + mark + d + mark + y, DateOrder::monthDayYear) == date);
        RC_ASSERT(dateFromText(d + mark + m + mark + y, DateOrder::dayMonthYear) == date);
        RC_ASSERT(dateFromText(y + mark + m + mark + d, DateOrder::yearMonthDay) == date);
        const DateTime first{year, month, 1, 0, 0, 0};
        RC_ASSERT(dateFromText(m + mark + y, DateOrder::dayMonthYear) == first);
    });
}

TEST(DateTimeProperty, AnyTextIsADateThatExistsOrNone) {
    expectHolds("no other end", [] {
        const auto text = *rc::gen::container<std::string>(rc::gen::oneOf(
            rc::gen::elementOf(std::string("0123456789-/. ")), rc::gen::arbitrary<char>()));
        const auto order = *rc::gen::element(DateOrder::monthDayYear, DateOrder::dayMonthYear,
                                             DateOrder::yearMonthDay);
        if (const auto date = dateFromText(text, order)) {
            RC_ASSERT(date->month >= 1 && date->month <= 12);
            RC_ASSERT(date->day >= 1 && date->day <= 31);
            RC_ASSERT(date->year >= 100 && date->year <= 9999);
        }
    });
}

TEST(DateTimeProperty, MonthsBetweenIsTheWayBackWithTheOtherSign) {
    expectHolds("antisymmetric", [] {
        const DateTime from{*rc::gen::inRange(1900, 2100), *rc::gen::inRange(1, 13), 1, 0, 0, 0};
        const int months = *rc::gen::inRange(-500, 500);
        const int total = from.year * 12 + from.month - 1 + months;
        const DateTime to{total / 12, total % 12 + 1, 28, 23, 59, 59};
        RC_ASSERT(monthsBetween(from, to) == months);
        RC_ASSERT(monthsBetween(to, from) == -months);
    });
}

} // namespace
} // namespace tollvane
