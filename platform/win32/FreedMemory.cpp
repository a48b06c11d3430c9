#include "platform/win32/FreedMemory.h"

#include <algorithm>
#include <array>
#include <functional>

#include <windows.h>

namespace tollvane::win32 {

namespace {

constexpr std::size_t kMostBlocks = 4096;

/// The sizes of the heap's free blocks.
class FreeSizes {
public:
    explicit FreeSizes(HANDLE heap) noexcept {
        PROCESS_HEAP_ENTRY entry{};
        HeapLock(heap);
        while (count_ < kMostBlocks && HeapWalk(heap, &entry) != FALSE) {
            if (entry.wFlags == 0 && entry.cbData > 0) {
                sizes_[count_++] = entry.cbData;
            }
        }
        HeapUnlock(heap);
        std::sort(begin(), end(), std::greater<>());
    }

    std::size_t* begin() noexcept { return sizes_.data(); }
    std::size_t* end() noexcept { return sizes_.data() + count_; }

private:
    std::array<std::size_t, kMostBlocks> sizes_{};
    std::size_t count_ = 0;
};

} // namespace

void wipeFreedMemory() noexcept {
    const HANDLE heap = GetProcessHeap();
    FreeSizes sizes(heap);
    std::array<void*, kMostBlocks> taken{};
    // A free block can only be written to by whoever takes it: the largest first, so that no small
    // request breaks one up.
    std::size_t count = 0;
    for (const std::size_t size : sizes) {
        taken[count++] = HeapAlloc(heap, HEAP_ZERO_MEMORY, size);
    }
    while (count > 0) {
        if (void* const block = taken[--count]) {
            HeapFree(heap, 0, block);
        }
    }
}

} // namespace tollvane::win32
