#include "components/logviewer/core/LogAmount.h"

#include <limits>

namespace tollvane::logviewer {

namespace {

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t scale = 10000;
constexpr std::size_t mostDecimals = 4;

// Another digit at the end; false when it does not fit.
bool append(std::int64_t& value, char digit) {
    if (digit < '0' || digit > '9')
        return false;
    const int next = digit - '0';
    if (value > (largest - next) / 10)
        return false;
    value = value * 10 + next;
    return true;
}

} // namespace

std::optional<std::int64_t> amountFromText(std::string_view text) {
    const bool negative = !text.empty() && text.front() == '-';
    if (negative)
        text.remove_prefix(1);
    const std::size_t point = text.find('.');
    if (point == std::string_view::npos || point == 0)
        return std::nullopt;
    const std::string_view decimals = text.substr(point + 1);
    if (decimals.size() < 2 || decimals.size() > mostDecimals)
        return std::nullopt;
    std::int64_t value = 0;
    for (const char digit : text.substr(0, point))
        if (!append(value, digit))
            return std::nullopt;
    for (std::size_t i = 0; i < mostDecimals; ++i)
        if (!append(value, i < decimals.size() ? decimals[i] : '0'))
            return std::nullopt;
    return negative ? -value : value;
}

std::string amountText(std::int64_t scaled) {
    // The smallest number has no positive counterpart of its own type.
    const std::uint64_t whole =
        scaled < 0 ? 0 - static_cast<std::uint64_t>(scaled) : static_cast<std::uint64_t>(scaled);
    std::string decimals = std::to_string(whole % scale);
    decimals.insert(0, mostDecimals - decimals.size(), '0');
    if (decimals.compare(2, 2, "00") == 0)
        decimals.resize(2);
    return (scaled < 0 ? "-" : "") + std::to_string(whole / scale) + "." + decimals;
}

void Sum::add(std::int64_t scaled) noexcept {
    if ((scaled > 0 && value_ > largest - scaled) || (scaled < 0 && value_ < smallest - scaled))
        fits_ = false;
    else
        value_ += scaled;
}

void Sum::subtract(std::int64_t scaled) noexcept {
    if ((scaled < 0 && value_ > largest + scaled) || (scaled > 0 && value_ < smallest + scaled))
        fits_ = false;
    else
        value_ -= scaled;
}

} // namespace tollvane::logviewer
