#include "platform/Money.h"

#include <array>

namespace tollvane {

namespace {

constexpr int kMoneyPlaces = 4;

// "1" stands for the digits, "$" for the symbol, "-" for the negative sign.
constexpr std::array<std::string_view, 4> kPositiveForms{"$1", "1$", "$ 1", "1 $"};
constexpr std::array<std::string_view, 16> kNegativeForms{
    "($1)", "-$1",  "$-1",  "$1-",  "(1$)", "-1$",  "1-$",   "1$-",
    "-1 $", "-$ 1", "1 $-", "$ 1-", "$ -1", "1- $", "($ 1)", "(1 $)"};

std::uint64_t magnitude(Money amount) {
    const auto bits = static_cast<std::uint64_t>(amount.scaled());
    return amount.isNegative() ? 0 - bits : bits;
}

struct Digits {
    std::string whole;
    std::string fraction;
};

/// The amount without its sign, rounded half up at `places`.
Digits roundedDigits(Money amount, int places) {
    std::uint64_t value = magnitude(amount);
    std::uint64_t unit = static_cast<std::uint64_t>(Money::scale);
    for (int i = 0; i < places && unit > 1; ++i) {
        unit /= 10;
    }
    value += unit / 2;
    value -= value % unit;
    constexpr auto kScale = static_cast<std::uint64_t>(Money::scale);
    Digits digits{std::to_string(value / kScale),
                  std::to_string(kScale + value % kScale).substr(1)};
    digits.fraction.resize(static_cast<std::size_t>(places), '0');
    return digits;
}

/// The group sizes from the right that a grouping text stands for, one after the other.
class GroupSizes {
public:
    explicit GroupSizes(std::string_view grouping) : left_(grouping) {}

    /// 0 means that the remaining digits stand together.
    std::size_t next() {
        if (left_.empty()) {
            return 0;
        }
        const std::size_t end = left_.find(';');
        std::size_t size = 0;
        for (const char c : left_.substr(0, end)) {
            size = c >= '0' && c <= '9' ? size * 10 + static_cast<std::size_t>(c - '0') : size;
        }
        if (size == 0) {
            return last_;
        }
        last_ = size;
        left_.remove_prefix(end == std::string_view::npos ? left_.size() : end + 1);
        return size;
    }

private:
    std::string_view left_;
    std::size_t last_ = 0;
};

std::string grouped(std::string whole, const MoneyStyle& style) {
    GroupSizes sizes(style.moneyGrouping);
    std::size_t at = whole.size();
    for (std::size_t size = sizes.next(); size > 0 && at > size; size = sizes.next()) {
        at -= size;
        whole.insert(at, style.moneyGroup);
    }
    return whole;
}

/// A locale may hold an order that does not exist; the first form then serves.
template <std::size_t count>
std::string_view formAt(const std::array<std::string_view, count>& forms, int order) {
    const auto place = static_cast<std::size_t>(order); // what is negative lies behind the end, too
    return place < count ? forms[place] : forms.front();
}

} // namespace

std::string currencyText(Money amount, const MoneyStyle& style) {
    Digits digits = roundedDigits(amount, style.digits);
    std::string number = grouped(std::move(digits.whole), style);
    if (!digits.fraction.empty()) {
        number += style.moneyDecimal + digits.fraction;
    }
    const std::string_view form = amount.isNegative() ? formAt(kNegativeForms, style.negativeOrder)
                                                      : formAt(kPositiveForms, style.positiveOrder);
    std::string text;
    for (const char part : form) {
        switch (part) {
        case '$': text += style.currencySymbol; break;
        case '1': text += number; break;
        case '-': text += style.negativeSign; break;
        default: text += part;
        }
    }
    return text;
}

std::string plainMoneyText(Money amount, const MoneyStyle& style) {
    constexpr int kPlainPlaces = 2;
    static_assert(kPlainPlaces <= kMoneyPlaces);
    const Digits digits = roundedDigits(amount, kPlainPlaces);
    return (amount.isNegative() ? "-" : "") + digits.whole + style.decimalSeparator +
           digits.fraction;
}

} // namespace tollvane
