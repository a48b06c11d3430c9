#include "platform/win32/UsedStack.h"

#include "platform/SecretText.h"

#include <array>

namespace tollvane::win32 {

namespace {

// Deeper than any handler gets with a text of the form.
constexpr std::size_t kDepth = 65'536;

void fill() {
    std::array<char, kDepth> below; // NOLINT(cppcoreguidelines-pro-type-member-init)
    wipeMemory(below.data(), below.size());
}

} // namespace

void wipeUsedStack() noexcept {
    // Through a pointer, so that it is called and not inlined: its frame has to lie below this one.
    void (*const volatile wipe)() = &fill;
    wipe();
}

} // namespace tollvane::win32
