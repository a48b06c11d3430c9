// The platform's own conversion judges ours.

#include "platform/DateTime.h"
#include "platform/win32/SystemText.h"
#include "tests/win32/SystemLocale.h"

#include <oleauto.h>

#include <gtest/gtest.h>
#include <optional>
#include <random>
#include <string>

namespace tollvane {
// For failure messages.
std::ostream& operator<<(std::ostream& out, const DateTime& date) {
    return out << date.year << '-' << date.month << '-' << date.day;
}
} // namespace tollvane

namespace tollvane::test {
namespace {

std::optional<DateTime> systemDate(const std::string& text, LCID locale) {
    std::wstring wide = win32::widened(text);
    DATE serial = 0;
    SYSTEMTIME time{};
    if (FAILED(VarDateFromStr(wide.data(), locale, 0, &serial)) ||
        VariantTimeToSystemTime(serial, &time) == FALSE) {
        return std::nullopt;
    }
    return DateTime{time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}

class DateJudge : public testing::TestWithParam<LCID> {
protected:
    std::optional<DateTime> ourDate(const std::string& text) {
        SystemLocale locale(GetParam());
        return dateFromText(text, dateOrder(locale));
    }

    static std::string joined(std::string text, const std::string& second, const std::string& third,
                              const std::string& mark) {
        return text.append(mark).append(second).append(mark).append(third);
    }

    std::string number(int below) {
        const int value = static_cast<int>(random() % static_cast<unsigned>(below));
        return (random() % 3 == 0 && value < 10 ? "0" : "") + std::to_string(value);
    }

    std::mt19937 random{20261121}; // NOLINT: the same texts each time
};

TEST_P(DateJudge, ThreeNumbersAreTheSystemsDate) {
    const std::string marks[]{"-", "/", " - "};
    int dates = 0;
    for (int i = 0; i < 20'000; ++i) {
        const std::string& mark = marks[random() % 3];
        const std::string third =
            random() % 2 == 0 ? number(100) : std::to_string(1900 + random() % 200);
        const bool yearFirst = random() % 4 == 0;
        const std::string text = yearFirst ? joined(third, number(14), number(33), mark)
                                           : joined(number(35), number(35), third, mark);
        const auto expected = systemDate(text, GetParam());
        if (!expected) {
            continue; // the system settles on an order before it looks at the length of the month
        }
        ASSERT_EQ(ourDate(text), expected) << text;
        ++dates;
    }
    EXPECT_GT(dates, 3'000) << "the texts should not all be refused";
}

TEST_P(DateJudge, AMonthWithAFullYearIsTheSystemsDate) {
    for (int year = 1950; year < 2100; ++year) {
        for (int month = 0; month <= 13; ++month) {
            for (const char* mark : {"-", "/"}) {
                const std::string text = std::to_string(month) + mark + std::to_string(year);
                ASSERT_EQ(ourDate(text), systemDate(text, GetParam())) << text;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Locales, DateJudge,
                         testing::Values(lcid::unitedStates, lcid::unitedKingdom, LCID{0x0411}));

} // namespace
} // namespace tollvane::test
