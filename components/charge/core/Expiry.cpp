#include "components/charge/core/Expiry.h"

#include <algorithm>
#include <cstdio>
#include <vector>

namespace tollvane::charge {

namespace {

constexpr int centuryOfShortYears = 2000;

bool onlyDigits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char character) {
        return character >= '0' && character <= '9';
    });
}

// -1 for what is no number of one to four digits.
int number(std::string_view text) {
    if (!onlyDigits(text) || text.size() > 4)
        return -1;
    int value = 0;
    for (char digit : text)
        value = value * 10 + (digit - '0');
    return value;
}

std::optional<Expiry> checked(int month, int year) {
    if (year >= 0 && year < 100)
        year += centuryOfShortYears;
    if (month < 1 || month > 12 || year < centuryOfShortYears)
        return std::nullopt;
    return Expiry{month, year};
}

std::vector<std::string_view> pieces(std::string_view text) {
    std::vector<std::string_view> result;
    for (;;) {
        const std::size_t end = text.find_first_of("-/");
        result.push_back(text.substr(0, end));
        if (end == std::string_view::npos)
            return result;
        text.remove_prefix(end + 1);
    }
}

} // namespace

std::string Expiry::text() const {
    return std::to_string(month) + "-" + std::to_string(year);
}

std::string Expiry::compact() const {
    char buffer[32] = {};
    std::snprintf(buffer, sizeof buffer, "%02d%02d", month, year % 100);
    return buffer;
}

bool Expiry::isPast(const Moment& now) const {
    return year < now.year || (year == now.year && month < now.month);
}

std::optional<Expiry> expiryFromText(std::string_view text) {
    if (text.size() == 4 && onlyDigits(text))
        return checked(number(text.substr(0, 2)), number(text.substr(2)));
    const std::vector<std::string_view> parts = pieces(text);
    if (parts.size() != 2 && parts.size() != 3)
        return std::nullopt;
    if (parts.size() == 3 && (number(parts[1]) < 1 || number(parts[1]) > 31))
        return std::nullopt;
    return checked(number(parts.front()), number(parts.back()));
}

std::optional<Expiry> expiryFromTrack(std::string_view yearMonth) {
    if (yearMonth.size() < 4)
        return std::nullopt;
    return checked(number(yearMonth.substr(2, 2)), number(yearMonth.substr(0, 2)));
}

} // namespace tollvane::charge
