// The compiler's check of the stack, which every function with a buffer makes as it returns. Its
// own library draws the guard from a cryptographic provider, which loads three libraries into every
// process and again for every one of our DLLs; this one asks the system's generator directly.

#include <windows.h>

#include <ntsecapi.h>

#include <cstdint>

extern "C" {

// The names are the compiler's.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
std::uintptr_t __stack_chk_guard = 0;

/// Ends the process at once and without a report: what was overwritten may be a card, and a report
/// would keep it.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
[[noreturn]] void __stack_chk_fail() {
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(STATUS_STACK_BUFFER_OVERRUN));
    __builtin_unreachable();
}

} // extern "C"

namespace {

/// Differs from start to start, for want of anything better.
std::uintptr_t timeAndPlace() {
    LARGE_INTEGER ticks{};
    QueryPerformanceCounter(&ticks);
    constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15; // odd, its bits evenly mixed
    const auto mixed = static_cast<std::uint64_t>(ticks.QuadPart) ^ GetCurrentProcessId() ^
                       reinterpret_cast<std::uintptr_t>(&ticks);
    return static_cast<std::uintptr_t>(mixed * kSpread);
}

/// Runs before everything that is checked, and so is not checked itself. The byte that comes first
/// in memory is zero: no text that runs over can put the right one there.
[[gnu::constructor(101), gnu::no_stack_protector]] void drawGuard() {
    constexpr std::uintptr_t kAllButFirstByte = ~std::uintptr_t{0xFF};
    std::uintptr_t drawn = 0;
    if (RtlGenRandom(&drawn, sizeof drawn) == FALSE) {
        drawn = timeAndPlace();
    }
    __stack_chk_guard = drawn & kAllButFirstByte;
}

} // namespace
