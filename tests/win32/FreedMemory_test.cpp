// What wipeFreedMemory reaches: every free block of the process's heap, however it is broken up.

#include "platform/win32/FreedMemory.h"
#include "tests/win32/MemorySearch.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

#include <windows.h>

namespace tollvane::test {
namespace {

constexpr std::string_view kHead = "Q3v9";
constexpr std::string_view kTail = "x7Lm";
constexpr std::size_t kMost = 1024;

/// Blocks of the process's heap.
class Blocks {
public:
    Blocks() { blocks_.reserve(kMost); }
    Blocks(const Blocks&) = delete;
    Blocks& operator=(const Blocks&) = delete;
    ~Blocks() { giveBack(); }

    char* take(std::size_t size) {
        blocks_.push_back(static_cast<char*>(HeapAlloc(GetProcessHeap(), 0, size)));
        return blocks_.back();
    }
    void giveBack() {
        for (char* const block : blocks_) {
            HeapFree(GetProcessHeap(), 0, block);
        }
        blocks_.clear();
    }

private:
    std::vector<char*> blocks_;
};

/// Writes the two parts of the text over and over again.
void fill(char* block, std::size_t size) {
    for (std::size_t at = 0; at + kHead.size() + kTail.size() <= size;) {
        at += kHead.copy(block + at, kHead.size());
        at += kTail.copy(block + at, kTail.size());
    }
}

TEST(FreedMemory, NothingIsLeftInFreeBlocksOfAnySize) {
    const MemorySearch search(kHead, kTail);
    Blocks freed;
    Blocks between; // so that no two free blocks become one
    for (std::size_t size = 24; size <= 2000; size += size < 400 ? 16 : 80) {
        for (int i = 0; i < 4; ++i) {
            fill(freed.take(size), size);
            between.take(16);
        }
    }
    freed.giveBack();
    ASSERT_GT(search.count(), 0);

    win32::wipeFreedMemory();

    EXPECT_EQ(search.count(), 0);
}

TEST(FreedMemory, NothingIsLeftAtTheEndOfTheHeap) {
    const MemorySearch search(kHead, kTail);
    constexpr std::size_t kPiece = 1000; // smaller than what the heap grows by
    constexpr std::size_t kPieces = 400; // more than the heap has room for between its blocks
    Blocks freed;
    for (std::size_t i = 0; i < kPieces; ++i) {
        fill(freed.take(kPiece), kPiece);
    }
    freed.giveBack();
    ASSERT_GT(search.count(), 0);

    win32::wipeFreedMemory();

    EXPECT_EQ(search.count(), 0);
}

} // namespace
} // namespace tollvane::test
