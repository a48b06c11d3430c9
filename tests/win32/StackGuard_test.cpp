#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

// The name is the compiler's.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" std::uintptr_t __stack_chk_guard;

namespace {

constexpr unsigned kStackBufferOverrun = 0xC0000409;
constexpr std::size_t kRoom = 16;

/// Writes `length` bytes into a buffer that holds kRoom.
[[gnu::noinline]] int fill(std::size_t length) {
    char buffer[kRoom] = {};
    char* volatile hidden = buffer; // from the compiler, which would see that it runs over
    std::memset(hidden, 'x', length);
    return buffer[0];
}

TEST(StackGuard, IsDrawnAndBeginsWithAZero) {
    EXPECT_NE(__stack_chk_guard, 0u);
    EXPECT_EQ(__stack_chk_guard & 0xFF, 0u);
}

TEST(StackGuard, LetsABufferBeFilledToItsEnd) {
    EXPECT_EQ(fill(kRoom), 'x');
}

TEST(StackGuard, AnOverwrittenStackEndsTheProcessAtOnceAndWithoutAWord) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(fill(4 * kRoom), testing::ExitedWithCode(static_cast<int>(kStackBufferOverrun)),
                "^$");
}

} // namespace
