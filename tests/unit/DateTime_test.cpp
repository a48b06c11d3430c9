#include "platform/DateTime.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace tollvane {
namespace {

constexpr auto kMdy = DateOrder::monthDayYear;
constexpr auto kDmy = DateOrder::dayMonthYear;
constexpr auto kYmd = DateOrder::yearMonthDay;

DateTime day(int year, int month, int dayOfMonth) {
    return {year, month, dayOfMonth, 0, 0, 0};
}

TEST(DateFromText, MonthAndYearAreTheFirstOfTheMonth) {
    for (const DateOrder order : {kMdy, kDmy, kYmd}) {
        for (const char* text : {"3-2027", "03-2027", "3/2027", "3.2027", "2027-3", " 3 - 2027 "}) {
            EXPECT_EQ(dateFromText(text, order), day(2027, 3, 1)) << text;
        }
        EXPECT_EQ(dateFromText("12-27", order), day(2027, 12, 1));
        EXPECT_EQ(dateFromText("12/31", order), day(2031, 12, 1));
        EXPECT_EQ(dateFromText("27-12", order), day(2027, 12, 1));
        EXPECT_EQ(dateFromText("13-27", order), std::nullopt);
        EXPECT_EQ(dateFromText("0-2027", order), std::nullopt);
    }
}

TEST(DateFromText, ThreeNumbersFollowTheLocalesOrder) {
    EXPECT_EQ(dateFromText("3-1-2027", kMdy), day(2027, 3, 1));
    EXPECT_EQ(dateFromText("3-1-2027", kDmy), day(2027, 1, 3));
    EXPECT_EQ(dateFromText("27-3-1", kYmd), day(2027, 3, 1));
    EXPECT_EQ(dateFromText("2027-03-15", kYmd), day(2027, 3, 15));
}

TEST(DateFromText, AnOrderThatMakesNoDateGivesWayToOneThatDoes) {
    EXPECT_EQ(dateFromText("13/1/2027", kMdy), day(2027, 1, 13));
    EXPECT_EQ(dateFromText("1/13/2027", kDmy), day(2027, 1, 13));
    EXPECT_EQ(dateFromText("2027/3/15", kMdy), day(2027, 3, 15));
    EXPECT_EQ(dateFromText("2027-13-03", kMdy), day(2027, 3, 13));
    EXPECT_EQ(dateFromText("13/1/27", kMdy), day(2013, 1, 27));
    EXPECT_EQ(dateFromText("3-1-2027", kYmd), day(2027, 3, 1));
}

TEST(DateFromText, ShortYearsEndIn2049) {
    EXPECT_EQ(dateFromText("1-1-49", kMdy), day(2049, 1, 1));
    EXPECT_EQ(dateFromText("1-1-50", kMdy), day(1950, 1, 1));
    EXPECT_EQ(dateFromText("3-0", kMdy), day(2000, 3, 1));
    EXPECT_EQ(dateFromText("3-1-100", kMdy), day(100, 3, 1));
    EXPECT_EQ(dateFromText("12-31-9999", kMdy), day(9999, 12, 31));
}

TEST(DateFromText, LeapDaysExistOnlyInLeapYears) {
    EXPECT_EQ(dateFromText("2-29-2028", kMdy), day(2028, 2, 29));
    EXPECT_EQ(dateFromText("2-29-2000", kMdy), day(2000, 2, 29));
    EXPECT_EQ(dateFromText("2-29-2027", kMdy), std::nullopt);
    EXPECT_EQ(dateFromText("2-29-2100", kMdy), std::nullopt);
}

TEST(DateFromText, MonthsHaveTheirOwnLastDay) {
    const std::array lastDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int month = 1; month <= 12; ++month) {
        const int last = lastDays.at(static_cast<std::size_t>(month - 1));
        const std::string start = std::to_string(month) + "-";
        EXPECT_EQ(dateFromText(start + std::to_string(last) + "-2027", kMdy),
                  day(2027, month, last));
        EXPECT_EQ(dateFromText(start + std::to_string(last + 1) + "-2027", kMdy), std::nullopt)
            << month;
    }
}

TEST(DateFromText, OtherTextsAreNoDates) {
    for (const char* text :
         {"",           " ",         "3",        "2027",     "32027",
          "3-",         "-3-2027",   "3--2027",  "3-x",      "x",
          "3-1-2027-1", "0-1-2027",  "1-0-2027", "13-13-13", "1-2027-3",
          "3-1-10000",  "4-31-2027", "1:2",      "3-2027x",  "99999999999999999999-1"}) {
        EXPECT_EQ(dateFromText(text, kMdy), std::nullopt) << text;
    }
}

TEST(MonthsBetween, CountsTheBoundariesThatAreCrossed) {
    EXPECT_EQ(monthsBetween({2026, 11, 21, 6, 18, 0}, day(2026, 11, 1)), 0);
    EXPECT_EQ(monthsBetween({2026, 11, 30, 23, 59, 59}, day(2026, 12, 1)), 1);
    EXPECT_EQ(monthsBetween(day(2026, 11, 1), day(2026, 10, 31)), -1);
    EXPECT_EQ(monthsBetween(day(2026, 12, 31), day(2027, 1, 1)), 1);
    EXPECT_EQ(monthsBetween(day(2026, 11, 21), day(2029, 2, 1)), 27);
}

} // namespace
} // namespace tollvane
