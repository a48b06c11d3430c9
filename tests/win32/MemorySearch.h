#pragma once

#include <cstddef>
#include <string_view>

namespace tollvane::test {

/// How often a text stands in this process's writable memory, narrow or wide. The text comes in
/// two halves, so that the search does not find its own.
class MemorySearch {
public:
    MemorySearch(std::string_view head, std::string_view tail) : head_(head), tail_(tail) {}

    int count() const;

private:
    int countIn(const char* memory, std::size_t size) const;
    bool matches(const char* memory, std::size_t width) const;

    std::string_view head_;
    std::string_view tail_;
};

} // namespace tollvane::test
