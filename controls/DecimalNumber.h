#pragma once

#include "controls/ProperCase.h"

#include <string>

namespace tollvane {

/// How a decimal number is written.
struct DecimalStyle {
    std::string separator = "."; ///< one character; anything else never limits
    int digits = 2;              ///< places behind the separator
};

/// True when the character may be typed: no second separator, and not more places than there are.
/// Characters other than digits and the separator always may.
bool mayTypeDecimal(const TypedInto& box, int keyAscii, const DecimalStyle& style);

} // namespace tollvane
