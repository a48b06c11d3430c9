// Damage to a file's content, as a script says: bits flipped, ranges overwritten, the end cut off.
#pragma once

#include "tests/fuzz/Script.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace tollvane::test {

/// What disks leave where nothing of the file is.
inline constexpr std::string_view kPatterns("\0\xFF\x5A\xA5", 4);

/// One piece of damage at `from` or behind it. Where it lies is a share of what there is, so that
/// the whole of a long file can be reached.
inline void damageOnce(std::string& content, Script& script, std::size_t from) {
    const std::size_t kind = script.next();
    const std::size_t share = script.nextPair();
    const std::size_t size = content.size() - from;
    const std::size_t place = from + (size > 65'536 ? share * size / 65'536 : share);
    if (place >= content.size()) {
        return;
    }
    if (kind % 4 == 0) {
        content.resize(place);
    } else if (kind % 4 == 1) {
        const std::size_t length = std::min(script.next() + 1, content.size() - place);
        content.replace(place, length, length, kPatterns[script.next() % kPatterns.size()]);
    } else {
        content[place] = static_cast<char>(content[place] ^ (1 << (kind / 4 % 8)));
    }
}

/// A cut that takes nothing but what follows a place.
inline bool isBeginningOf(const std::string& shorter, const std::string& content) {
    return content.compare(0, shorter.size(), shorter) == 0;
}

} // namespace tollvane::test
