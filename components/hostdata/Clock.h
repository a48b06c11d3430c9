// The time as the host data server sees it.
#pragma once

#include <chrono>
#include <cstdint>

namespace tollvane::hostdata {

class Clock {
public:
    Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;
    virtual ~Clock() = default;

    // Milliseconds since 1 January 1970, UTC.
    [[nodiscard]] virtual std::int64_t now() const = 0;
};

class SystemClock final : public Clock {
public:
    [[nodiscard]] std::int64_t now() const override {
        using namespace std::chrono;
        return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
    }
};

} // namespace tollvane::hostdata
