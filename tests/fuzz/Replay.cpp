// Plays a fuzz target's corpus once.

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

TEST(Corpus, StillHoldsItsPromises) {
    int played = 0;
    for (const auto& file : std::filesystem::directory_iterator(TOLLVANE_CORPUS)) {
        SCOPED_TRACE(file.path().filename());
        std::ifstream in(file.path(), std::ios::binary);
        const std::vector<std::uint8_t> input{std::istreambuf_iterator<char>(in), {}};
        EXPECT_EQ(LLVMFuzzerTestOneInput(input.data(), input.size()), 0);
        ++played;
    }
    EXPECT_GT(played, 0) << "no corpus in " << TOLLVANE_CORPUS;
}

} // namespace
