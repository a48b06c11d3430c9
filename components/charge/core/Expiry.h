// A card's month of expiry.
#pragma once

#include "components/charge/core/Clock.h"

#include <optional>
#include <string>
#include <string_view>

namespace tollvane::charge {

struct Expiry {
    int month = 0; // 1 to 12
    int year = 0;  // four digits

    // "3-2027", as the program sends it.
    std::string text() const;
    // "0327"
    std::string compact() const;
    // A card is good to the end of its month.
    bool isPast(const Moment& now) const;

    friend bool operator==(const Expiry&, const Expiry&) = default;
};

// "3-2027", "03/2027", "3-27", "3-1-2027" (a date in that month), "0327". Nothing for other texts.
std::optional<Expiry> expiryFromText(std::string_view text);

// "2703", the order of a track. Nothing when it is no year and month.
std::optional<Expiry> expiryFromTrack(std::string_view yearMonth);

} // namespace tollvane::charge
