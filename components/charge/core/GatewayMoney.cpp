#include "components/charge/core/GatewayMoney.h"

#include "components/charge/core/Failure.h"

#include <limits>

namespace tollvane::charge {

namespace {

constexpr int decimalPlaces = 4;
constexpr auto largest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());

[[noreturn]] void notAnAmount() {
    throw failure(failurenumber::notAnAmount, "Fields", "The amount is not a number.");
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

class Magnitude {
public:
    void add(char digit) {
        const auto value = static_cast<std::uint64_t>(digit - '0');
        if (value_ > (largest - value) / 10)
            throw failure(failurenumber::amountTooLarge, "Fields", "The amount is too large.");
        value_ = value_ * 10 + value;
    }
    std::int64_t value() const { return static_cast<std::int64_t>(value_); }

private:
    std::uint64_t value_ = 0;
};

} // namespace

std::string gatewayText(Money amount) {
    const std::int64_t scaled = amount.scaled();
    const std::uint64_t magnitude =
        scaled < 0 ? 0 - static_cast<std::uint64_t>(scaled) : static_cast<std::uint64_t>(scaled);
    const std::uint64_t scale = static_cast<std::uint64_t>(Money::scale);
    std::string decimals = std::to_string(scale + magnitude % scale).substr(1);
    while (decimals.size() > 2 && decimals.back() == '0')
        decimals.pop_back();
    return (scaled < 0 ? "-" : "") + std::to_string(magnitude / scale) + "." + decimals;
}

Money moneyFromGatewayText(std::string_view text) {
    std::string_view rest = trimmed(text);
    if (rest.empty())
        return Money();
    const bool negative = rest.front() == '-';
    if (negative || rest.front() == '+')
        rest.remove_prefix(1);
    Magnitude magnitude;
    std::size_t digits = 0;
    int decimals = -1;
    for (char character : rest) {
        if (character == '.' && decimals < 0) {
            decimals = 0;
        } else if (isDigit(character) && decimals < decimalPlaces) {
            magnitude.add(character);
            ++digits;
            decimals += decimals >= 0 ? 1 : 0;
        } else {
            notAnAmount();
        }
    }
    if (digits == 0)
        notAnAmount();
    for (int place = decimals < 0 ? 0 : decimals; place < decimalPlaces; ++place)
        magnitude.add('0');
    return Money::fromScaled(negative ? -magnitude.value() : magnitude.value());
}

} // namespace tollvane::charge
