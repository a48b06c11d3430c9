#pragma once

#include <cstddef>
#include <string_view>

namespace tollvane::test {

/// Looks, while it lives, into every block of memory at the moment when the program gives it back.
/// One at a time.
class FreedMemory {
public:
    /// `wanted` is not empty and outlives the object, in memory that is not given back.
    explicit FreedMemory(std::string_view wanted);
    FreedMemory(const FreedMemory&) = delete;
    FreedMemory& operator=(const FreedMemory&) = delete;
    ~FreedMemory();

    /// How many of the blocks still held the wanted text.
    std::size_t blocksWithIt() const;
};

} // namespace tollvane::test
