#pragma once

#include <cstddef>
#include <cstdint>

namespace tollvane::simulation {

/// Random numbers that are the same on every machine and with every compiler.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : state_(seed) {}

    std::uint64_t next() {
        std::uint64_t value = (state_ += 0x9E3779B97F4A7C15U);
        value = (value ^ (value >> 30U)) * 0xBF58476D1CE4E5B9U;
        value = (value ^ (value >> 27U)) * 0x94D049BB133111EBU;
        return value ^ (value >> 31U);
    }
    /// 0 to limit - 1.
    int below(int limit) { return static_cast<int>(next() % static_cast<std::uint64_t>(limit)); }
    int between(int low, int high) { return low + below(high - low + 1); }
    /// True in so many of a hundred cases.
    bool percent(int share) { return below(100) < share; }
    template <class List>
    auto pick(const List& list) -> const typename List::value_type& {
        return list[static_cast<std::size_t>(below(static_cast<int>(list.size())))];
    }

private:
    std::uint64_t state_;
};

} // namespace tollvane::simulation
