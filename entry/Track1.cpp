#include "entry/Track1.h"

#include "platform/Text.h"

#include <algorithm>

namespace tollvane {

namespace {

constexpr std::size_t kHeader = 2; // start sentinel and format code
constexpr std::size_t kExpiryLength = 4;

bool hasHeader(std::string_view text) {
    return text.size() >= kHeader && text[0] == track::startSentinel &&
           (text[1] == track::formatCode || text[1] == 'b');
}

/// The piece up to the next separator; `rest` then starts behind that separator.
std::string_view nextPiece(std::string_view& rest) {
    const std::size_t end = std::min(rest.find(track::separator), rest.size());
    const std::string_view piece = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return piece;
}

} // namespace

Track1 parseTrack1(std::string_view text) {
    const std::size_t end = text.find(track::endSentinel);
    if (!hasHeader(text) || end == std::string_view::npos) {
        return {};
    }
    // The character behind the end sentinel may be the LRC.
    std::string_view rest = text.substr(kHeader, end + 2 - kHeader);
    Track1 read;
    read.pan = SecretText(nextPiece(rest));
    read.name = holderName(nextPiece(rest));
    read.expiry = std::string(nextPiece(rest).substr(0, kExpiryLength));
    return read;
}

SecretText trimmedSecret(const SecretText& secret) {
    std::string_view text = secret.view();
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    text = text.substr(first, text.find_last_not_of(' ') - first + 1);
    return SecretText(text);
}

bool isCompleteTrack1(std::string_view text) {
    const std::size_t end = text.find(track::endSentinel);
    return hasHeader(text) && end != std::string_view::npos &&
           std::ranges::count(text.substr(0, end), track::separator) >= 2;
}

std::string holderName(std::string_view nameOnCard) {
    const std::size_t slash = nameOnCard.find('/');
    if (slash == std::string_view::npos) {
        return std::string(nameOnCard);
    }
    return trimmed(nameOnCard.substr(slash + 1)) + ' ' + std::string(nameOnCard.substr(0, slash));
}

} // namespace tollvane
