#pragma once

#include "platform/Money.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tollvane {

/// A number read from a text without loss: digits times ten to the power of the exponent.
struct ScannedNumber {
    bool negative = false;
    std::string digits; ///< without leading zeros; empty is zero
    long exponent = 0;
    bool radixLiteral = false; ///< was written as "&H..." or "&O..."
};

/// Reads a number the way the platform's automation conversions read it: blanks around every part,
/// a sign and the currency symbol in front or behind, brackets for negatives, group separators,
/// an exponent, and "&H" and "&O" literals. Nothing when the text is no number.
std::optional<ScannedNumber> scanNumber(std::string_view text, const MoneyStyle& style);

/// The number times ten to the power of `places`, rounded half to even; nothing when that does not
/// fit 64 bits.
std::optional<std::int64_t> scaledInteger(const ScannedNumber& number, int places);

/// The nearest double; infinite when it is too large.
double nearestDouble(const ScannedNumber& number);

/// Raises 13.
[[noreturn]] void raiseTypeMismatch();
/// Raises 6.
[[noreturn]] void raiseOverflow();

} // namespace tollvane
