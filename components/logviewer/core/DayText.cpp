#include "components/logviewer/core/DayText.h"

namespace tollvane::logviewer {

namespace {

// A number of so many digits at most at the beginning, taken away; 0 when there is none.
std::int32_t takeNumber(std::string_view& text, std::size_t mostDigits) {
    std::int32_t number = 0;
    std::size_t digits = 0;
    while (digits < text.size() && digits < mostDigits && text[digits] >= '0' &&
           text[digits] <= '9')
        number = number * 10 + (text[digits++] - '0');
    text.remove_prefix(digits);
    return number;
}

bool takeDash(std::string_view& text) {
    const bool found = !text.empty() && text.front() == '-';
    if (found)
        text.remove_prefix(1);
    return found;
}

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

} // namespace

std::optional<std::int32_t> dayFromText(std::string_view text, PeriodEnd end) {
    constexpr std::int32_t lastMonth = 12;
    constexpr std::int32_t lastDay = 31;
    text = trimmed(text);
    std::int32_t month = end == PeriodEnd::First ? 1 : lastMonth;
    std::int32_t day = end == PeriodEnd::First ? 1 : lastDay;
    const std::int32_t year = takeNumber(text, 4);
    if (year < 1000)
        return std::nullopt;
    if (takeDash(text)) {
        month = takeNumber(text, 2);
        if (month < 1 || month > lastMonth)
            return std::nullopt;
        if (takeDash(text)) {
            day = takeNumber(text, 2);
            if (day < 1 || day > lastDay)
                return std::nullopt;
        }
    }
    if (!text.empty())
        return std::nullopt;
    return year * 10000 + month * 100 + day;
}

} // namespace tollvane::logviewer
