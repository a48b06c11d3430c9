#include "platform/win32/FreedMemory.h"

#include "platform/win32/Handles.h"

#include <algorithm>
#include <array>
#include <functional>

#include <windows.h>

namespace tollvane::win32 {

namespace {

constexpr std::size_t kMostBlocks = 4096;

/// More than a walk leaves out of the last free block, and less than a page.
constexpr std::size_t kPastTheEnd = 128;

bool isFree(const PROCESS_HEAP_ENTRY& entry) noexcept {
    return entry.wFlags == 0 && entry.cbData > 0;
}

bool isUncommitted(const PROCESS_HEAP_ENTRY& entry) noexcept {
    return (entry.wFlags & PROCESS_HEAP_UNCOMMITTED_RANGE) != 0 && entry.cbData > 0;
}

/// The sizes of the heap's free blocks, as a walk tells them. The last one goes on to where the
/// memory is not in use yet, with some bytes that the walk leaves out: it is told longer, into
/// what the heap can still grow by.
class FreeSizes {
public:
    explicit FreeSizes(HANDLE heap) noexcept {
        PROCESS_HEAP_ENTRY entry{};
        bool wasFree = false;
        while (count_ < kMostBlocks && HeapWalk(heap, &entry) != FALSE) {
            if (wasFree && isUncommitted(entry)) {
                sizes_[count_ - 1] += kPastTheEnd;
            }
            wasFree = isFree(entry);
            if (wasFree) {
                sizes_[count_++] = entry.cbData;
            }
        }
        std::sort(begin(), end(), std::greater<>());
    }

    std::size_t* begin() noexcept { return sizes_.data(); }
    std::size_t* end() noexcept { return sizes_.data() + count_; }

private:
    std::array<std::size_t, kMostBlocks> sizes_{};
    std::size_t count_ = 0;
};

struct HeapTraits {
    using Handle = HANDLE;
    static Handle empty() { return nullptr; }
    static void close(Handle handle) { HeapDestroy(handle); }
};

/// The size that a walk tells of the free block between two addresses; 0 when there is none.
std::size_t toldBetween(HANDLE heap, const void* first, const void* last) noexcept {
    PROCESS_HEAP_ENTRY entry{};
    while (HeapWalk(heap, &entry) != FALSE) {
        if (isFree(entry) && entry.lpData >= first && entry.lpData < last) {
            return entry.cbData;
        }
    }
    return 0;
}

/// Bytes that a free block has room for and a walk does not tell of: a heap may leave out those
/// where it keeps its links. Tried out on a heap of its own.
std::size_t findUntold() noexcept {
    constexpr std::size_t kSize = 200;
    constexpr std::size_t kMostUntold = 4 * sizeof(void*);
    const Owner<HeapTraits> heap(HeapCreate(0, 0, 0));
    if (!heap) {
        return 0;
    }
    void* const block = HeapAlloc(heap.get(), 0, kSize);
    // Or the first one would become one with what is free behind it.
    const void* const next = HeapAlloc(heap.get(), 0, kSize);
    HeapFree(heap.get(), 0, block);
    const std::size_t told = toldBetween(heap.get(), block, next);
    for (std::size_t untold = kMostUntold; told > 0 && untold > 0; untold -= sizeof(void*)) {
        void* const again = HeapAlloc(heap.get(), 0, told + untold);
        HeapFree(heap.get(), 0, again);
        if (again == block) {
            return untold;
        }
    }
    return 0;
}

} // namespace

void wipeFreedMemory() noexcept {
    static const std::size_t untold = findUntold();
    const HANDLE heap = GetProcessHeap();
    std::array<void*, kMostBlocks> taken{};
    // Between the walk and the taking nobody may take or give back a block.
    HeapLock(heap);
    FreeSizes sizes(heap);
    // A free block can only be written to by whoever takes it. Each is asked for with all it has
    // room for, the largest first: what is too small for one block goes into another one, breaks
    // it up, and leaves the rest of it and a third block as they are.
    std::size_t count = 0;
    for (const std::size_t size : sizes) {
        taken[count++] = HeapAlloc(heap, HEAP_ZERO_MEMORY, size + untold);
    }
    while (count > 0) {
        if (void* const block = taken[--count]) {
            HeapFree(heap, 0, block);
        }
    }
    HeapUnlock(heap);
}

} // namespace tollvane::win32
