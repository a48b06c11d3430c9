#include "platform/Money.h"

#include "platform/NumberText.h"

#include <limits>

namespace tollvane {

namespace {
constexpr int kMoneyPlaces = 4;
} // namespace

Money Money::absolute() const {
    return isNegative() ? negated() : *this;
}

Money Money::negated() const {
    if (scaled_ == std::numeric_limits<std::int64_t>::min()) {
        raiseOverflow();
    }
    return Money(-scaled_);
}

// The platform's Wine twin converts through a double and so misses the last places of large
// amounts and the exact half; Windows keeps every place, and so does this.
Money moneyFromText(std::string_view text, const MoneyStyle& style) {
    const auto number = scanNumber(text, style);
    if (!number) {
        raiseTypeMismatch();
    }
    const auto scaled = scaledInteger(*number, kMoneyPlaces);
    if (!scaled) {
        raiseOverflow();
    }
    return Money::fromScaled(*scaled);
}

} // namespace tollvane
