#pragma once

#include <cstdint>

#include <windows.h>

namespace tollvane::test {

/// Asks again and again until the answer is yes; false when ten seconds have passed. For states
/// that come from outside of this process: a form's own are awaited by its robot.
template <class Question>
bool until(Question&& question) {
    constexpr std::uint64_t patience = 10'000;
    constexpr DWORD interval = 10;
    for (const std::uint64_t end = GetTickCount64() + patience; !question(); Sleep(interval)) {
        if (GetTickCount64() > end) {
            return false;
        }
    }
    return true;
}

} // namespace tollvane::test
