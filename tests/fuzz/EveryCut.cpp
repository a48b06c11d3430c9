// Cuts a target's files at every length, or at one of so many and at the edges of every block that
// a disk writes at once. TOLLVANE_CUT_STRIDE says at one of how many.

#include "tests/fuzz/EveryCut.h"

#include "tests/fuzz/Script.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace tollvane::test {
namespace {

bool isAtAnEdge(std::size_t length) {
    constexpr std::size_t kBlock = 512;
    return (length + 1) % kBlock <= 2;
}

TEST(Cuts, AreToldOrChangeNothing) {
    const char* asked = std::getenv("TOLLVANE_CUT_STRIDE");
    for (const CutFile& file : cutFiles()) {
        const std::size_t stride =
            asked == nullptr ? file.shortStride : std::strtoul(asked, nullptr, 10);
        ASSERT_GT(stride, 0U);
        ASSERT_GT(file.size, 0U) << file.name;
        int tried = 0;
        for (std::size_t length = 0; length < file.size; ++length) {
            if (length % stride == 0 || isAtAnEdge(length)) {
                atWork() = file.name + " cut to " + std::to_string(length) + " bytes";
                file.judge(length);
                ++tried;
            }
        }
        RecordProperty("cuts of the " + file.name, tried);
        RecordProperty("bytes of the " + file.name, static_cast<int>(file.size));
    }
}

} // namespace
} // namespace tollvane::test
