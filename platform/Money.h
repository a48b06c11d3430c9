#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace tollvane {

/// A currency amount: a 64-bit integer scaled by 10,000 (four decimal places).
class Money {
public:
    static constexpr std::int64_t scale = 10'000;

    constexpr Money() = default;
    static constexpr Money fromScaled(std::int64_t scaled) { return Money(scaled); }
    /// Whole units; no range check, meant for constants.
    static constexpr Money fromUnits(std::int64_t units) { return Money(units * scale); }

    constexpr std::int64_t scaled() const { return scaled_; }
    constexpr bool isZero() const { return scaled_ == 0; }
    constexpr bool isNegative() const { return scaled_ < 0; }

    /// Raises 6 (overflow) for the one value that has no positive twin.
    Money absolute() const;
    Money negated() const;

    // clang-tidy 14 takes the defaulted comparison for a comparison with a null pointer.
    friend constexpr auto operator<=>(Money, Money) = default; // NOLINT(modernize-use-nullptr)

private:
    explicit constexpr Money(std::int64_t scaled) : scaled_(scaled) {}
    std::int64_t scaled_ = 0;
};

/// How the operator's locale writes numbers and money.
struct MoneyStyle {
    std::string currencySymbol = "$";
    std::string decimalSeparator = "."; ///< of plain numbers
    std::string groupSeparator = ",";   ///< of plain numbers
    std::string moneyDecimal = ".";     ///< of money
    std::string moneyGroup = ",";       ///< of money
    std::string moneyGrouping = "3;0";  ///< group sizes from the right; a closing 0 repeats
    std::string negativeSign = "-";
    int digits = 2;        ///< decimal places of the currency form
    int positiveOrder = 0; ///< 0 "$1", 1 "1$", 2 "$ 1", 3 "1 $"
    int negativeOrder = 0; ///< 0 "($1)" to 15 "(1 $)"
};

/// Text to money as the platform's currency type converts it: blanks, symbol, grouping, sign in
/// front or behind, brackets, exponent; rounded half to even at the fourth place.
/// Raises 13 when the text is no amount and 6 when it is too large.
Money moneyFromText(std::string_view text, const MoneyStyle& style);

/// The named format "CURRENCY".
std::string currencyText(Money amount, const MoneyStyle& style);

/// The format "0.00": two decimals, no symbol, no grouping.
std::string plainMoneyText(Money amount, const MoneyStyle& style);

} // namespace tollvane
