#include "components/charge/core/CardNumberRules.h"

#include <algorithm>
#include <cstddef>

namespace tollvane::charge {

namespace {

// Numbers whose first digits (as many as first has) lie from first to last belong to the scheme.
struct Prefix {
    std::string_view scheme;
    std::string_view first;
    std::string_view last;
    std::size_t shortest;
    std::size_t longest;
};

// The more particular ranges stand before the wider ones that contain them.
constexpr Prefix prefixes[] = {
    {"Visa", "4", "4", 13, 13},
    {"Visa", "4", "4", 16, 16},
    {"Visa", "4", "4", 19, 19},
    {"Mastercard", "51", "55", 16, 16},
    {"Mastercard", "2221", "2720", 16, 16},
    {"American Express", "34", "34", 15, 15},
    {"American Express", "37", "37", 15, 15},
    {"Diners Club", "300", "305", 14, 19},
    {"Diners Club", "309", "309", 14, 19},
    {"Diners Club", "36", "36", 14, 19},
    {"Diners Club", "38", "39", 14, 19},
    {"JCB", "3528", "3589", 16, 19},
    {"Discover", "6011", "6011", 16, 19},
    {"Discover", "644", "649", 16, 19},
    {"Discover", "65", "65", 16, 19},
    {"UnionPay", "62", "62", 16, 19},
    {"Maestro", "50", "50", 12, 19},
    {"Maestro", "56", "58", 12, 19},
    {"Maestro", "6304", "6304", 12, 19},
    {"Maestro", "6759", "6759", 12, 19},
    {"Maestro", "6761", "6763", 12, 19},
};

bool onlyDigits(std::string_view text) noexcept {
    return std::all_of(text.begin(), text.end(),
                       [](char character) { return character >= '0' && character <= '9'; });
}

bool fits(const Prefix& prefix, std::string_view number) noexcept {
    if (number.size() < prefix.shortest || number.size() > prefix.longest)
        return false;
    const std::string_view start = number.substr(0, prefix.first.size());
    return start >= prefix.first && start <= prefix.last;
}

// Every second digit from the right counts double, a two-digit double counts the sum of its digits;
// the total of a right number ends in 0.
bool checkDigitIsRight(std::string_view number) noexcept {
    int total = 0;
    bool doubled = false;
    for (auto digit = number.rbegin(); digit != number.rend(); ++digit, doubled = !doubled) {
        const int value = (*digit - '0') * (doubled ? 2 : 1);
        total += value > 9 ? value - 9 : value;
    }
    return total % 10 == 0;
}

} // namespace

std::string_view cardScheme(std::string_view number) noexcept {
    if (!onlyDigits(number))
        return {};
    for (const Prefix& each : prefixes) {
        if (fits(each, number))
            return each.scheme;
    }
    return {};
}

bool acceptableCardNumber(std::string_view number) noexcept {
    return !cardScheme(number).empty() && checkDigitIsRight(number);
}

} // namespace tollvane::charge
