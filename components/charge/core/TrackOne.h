// The first track of a swiped card: "%B", card number, "^", name, "^", year and month of expiry and
// further data, "?".
#pragma once

#include "components/charge/core/Expiry.h"
#include "platform/SecretText.h"

#include <optional>
#include <string_view>

namespace tollvane::charge {

struct TrackOne {
    SecretText cardNumber;
    std::optional<Expiry> expiry;
};

// Nothing when the text is no complete track 1. Blanks in the number are left out; whether it is an
// acceptable number is not judged here.
std::optional<TrackOne> parseTrackOne(std::string_view track);

} // namespace tollvane::charge
