// Money in the form in which it travels in a gateway field and stands in the log.
#pragma once

#include "platform/Money.h"

#include <string>
#include <string_view>

namespace tollvane::charge {

// "12.50", "-0.05", "0.1234": a point, two to four decimal places, no symbol, no grouping.
std::string gatewayText(Money amount);

// The same form back; also "12", ".5", "12.", blanks around it; the empty text is 0. Raises 13 for
// anything else, 6 for what does not fit.
Money moneyFromGatewayText(std::string_view text);

} // namespace tollvane::charge
