// The errors that the component raises, with their numbers. Declines are not among them: they are
// answers.
#pragma once

#include "components/common/ComponentError.h"

#include <cstdint>
#include <string>

namespace tollvane::charge {

namespace failurenumber {
inline constexpr std::uint32_t unknownField = com::applicationErrorBase + 3001;
inline constexpr std::uint32_t cannotRecord = com::applicationErrorBase + 3002;
inline constexpr std::uint32_t outcomeUnknown = com::applicationErrorBase + 3003;
inline constexpr std::uint32_t damagedFile = com::applicationErrorBase + 3004;
inline constexpr std::uint32_t notAnAmount = com::runtimeError(13);
inline constexpr std::uint32_t amountTooLarge = com::runtimeError(6);
} // namespace failurenumber

// room is appended to the source: "Zendacard.Journal".
inline com::ComponentError failure(std::uint32_t number, const std::string& room,
                                   const std::string& description) {
    return com::ComponentError(number, "Zendacard." + room, description);
}

} // namespace tollvane::charge
