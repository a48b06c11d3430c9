#include "components/charge/core/TrackOne.h"

namespace tollvane::charge {

std::optional<TrackOne> parseTrackOne(std::string_view track) {
    const std::size_t start = track.find('%');
    if (start == std::string_view::npos)
        return std::nullopt;
    std::string_view rest = track.substr(start + 1);
    if (!rest.starts_with('B') && !rest.starts_with('b'))
        return std::nullopt;
    rest.remove_prefix(1);
    const std::size_t end = rest.find('?');
    const std::size_t name = rest.find('^');
    const std::size_t data = name < end ? rest.find('^', name + 1) : std::string_view::npos;
    if (end == std::string_view::npos || data == std::string_view::npos || data > end)
        return std::nullopt;
    TrackOne result;
    for (char character : rest.substr(0, name)) {
        if (character != ' ')
            result.cardNumber.append(character);
    }
    if (result.cardNumber.empty())
        return std::nullopt;
    result.expiry = expiryFromTrack(rest.substr(data + 1, end - data - 1));
    return result;
}

} // namespace tollvane::charge
