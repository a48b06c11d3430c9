#pragma once

#include "platform/SecretText.h"

#include <string>
#include <string_view>

namespace tollvane {

/// Characters that give a card's tracks their form.
namespace track {
inline constexpr char startSentinel = '%'; ///< of track 1
inline constexpr char formatCode = 'B';    ///< of a bank card's track 1
inline constexpr char separator = '^';     ///< between PAN, name and the rest of track 1
inline constexpr char endSentinel = '?';   ///< of every track; one check character (LRC) may follow
inline constexpr char secondStart = ';';   ///< start sentinel of track 2
inline constexpr char secondSeparator = '='; ///< behind the PAN of track 2
inline constexpr char thirdStart = '+';      ///< start sentinel of track 3
} // namespace track

/// What track 1 says about a card.
struct Track1 {
    SecretText pan;
    std::string name;   ///< in reading order
    std::string expiry; ///< YYMM
};

/// Takes a whole track 1 text apart. All parts are empty when the text does not start with "%B" (or
/// "%b") or has no end sentinel.
Track1 parseTrack1(std::string_view text);

/// True when the text holds a whole track 1: format code, both separators, end sentinel.
bool isCompleteTrack1(std::string_view text);

/// The name in reading order: "SMITH/JOHN" becomes "JOHN SMITH". Without "/" it stays as it is.
std::string holderName(std::string_view nameOnCard);

/// Without leading and trailing blanks.
SecretText trimmedSecret(const SecretText& secret);

} // namespace tollvane
