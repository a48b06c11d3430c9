#pragma once

#include "platform/DateTime.h"
#include "platform/Money.h"
#include "platform/Surroundings.h"

namespace tollvane {

/// Item numbers of the system's locale database.
namespace localeitem {
inline constexpr std::uint32_t decimalSeparator = 0x0E;
inline constexpr std::uint32_t groupSeparator = 0x0F;
inline constexpr std::uint32_t currencySymbol = 0x14;
inline constexpr std::uint32_t moneyDecimal = 0x16;
inline constexpr std::uint32_t moneyGroup = 0x17;
inline constexpr std::uint32_t moneyGrouping = 0x18;
inline constexpr std::uint32_t currencyDigits = 0x19;
inline constexpr std::uint32_t positiveCurrencyOrder = 0x1B;
inline constexpr std::uint32_t negativeCurrencyOrder = 0x1C;
inline constexpr std::uint32_t dateOrder = 0x21;
inline constexpr std::uint32_t negativeSign = 0x51;
} // namespace localeitem

/// One item of a locale as text, empty when there is no such item.
std::string localeText(Locale& locale, std::uint32_t which, std::uint32_t item);

/// How the signed-in user writes numbers and money; an item that the locale lacks keeps the
/// default of MoneyStyle. Raises 5 when a decimal sign cannot be read.
MoneyStyle moneyStyle(Locale& locale);

/// How the signed-in user writes short dates.
DateOrder dateOrder(Locale& locale);

} // namespace tollvane
