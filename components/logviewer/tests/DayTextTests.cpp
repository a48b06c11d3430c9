#include "components/logviewer/core/DayText.h"

#include <gtest/gtest.h>

namespace tollvane::logviewer {
namespace {

TEST(DayText, AWholeDateIsThatDay) {
    EXPECT_EQ(dayFromText("2026-11-21", PeriodEnd::First), 20261121);
    EXPECT_EQ(dayFromText("2026-11-21", PeriodEnd::Last), 20261121);
    EXPECT_EQ(dayFromText(" 2026-1-2 ", PeriodEnd::First), 20260102);
}

TEST(DayText, TheFirstAndTheLastDaysAndMonthsAreDays) {
    EXPECT_EQ(dayFromText("1000-01-01", PeriodEnd::Last), 10000101);
    EXPECT_EQ(dayFromText("9999-12-31", PeriodEnd::First), 99991231);
}

TEST(DayText, AMonthOrAYearReachesFromItsFirstToItsLastDay) {
    EXPECT_EQ(dayFromText("2026-02", PeriodEnd::First), 20260201);
    EXPECT_EQ(dayFromText("2026-02", PeriodEnd::Last), 20260231);
    EXPECT_EQ(dayFromText("2026", PeriodEnd::First), 20260101);
    EXPECT_EQ(dayFromText("2026", PeriodEnd::Last), 20261231);
}

TEST(DayText, AnythingElseIsNoDay) {
    for (const char* text : {"", "  ", "x", "26", "999", "20261121", "2026-", "2026-13", "2026-0-1",
                             "2026-11-0", "20261", "2026-011", "2026-11-021", "2026-11-",
                             "2026-11-32", "2026-11-21x", "21.11.2026", "-2026"})
        EXPECT_EQ(dayFromText(text, PeriodEnd::First), std::nullopt) << text;
}

} // namespace
} // namespace tollvane::logviewer
