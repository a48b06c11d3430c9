#include "tests/win32/MemorySearch.h"

#include <windows.h>

namespace tollvane::test {

int MemorySearch::count() const {
    int found = 0;
    MEMORY_BASIC_INFORMATION region{};
    const char* at = nullptr;
    while (VirtualQuery(at, &region, sizeof region) == sizeof region) {
        at = static_cast<const char*>(region.BaseAddress) + region.RegionSize;
        const bool readable = region.State == MEM_COMMIT && region.Type == MEM_PRIVATE &&
                              (region.Protect & PAGE_READWRITE) != 0 &&
                              (region.Protect & PAGE_GUARD) == 0;
        if (readable) {
            found += countIn(static_cast<const char*>(region.BaseAddress), region.RegionSize);
        }
    }
    return found;
}

int MemorySearch::countIn(const char* memory, std::size_t size) const {
    int found = 0;
    for (const std::size_t width : {sizeof(char), sizeof(wchar_t)}) {
        const std::size_t needed = (head_.size() + tail_.size()) * width;
        for (std::size_t at = 0; at + needed <= size; ++at) {
            found += matches(memory + at, width) ? 1 : 0;
        }
    }
    return found;
}

bool MemorySearch::matches(const char* memory, std::size_t width) const {
    const std::size_t size = head_.size() + tail_.size();
    for (std::size_t i = 0; i < size; ++i) {
        const char wanted = i < head_.size() ? head_[i] : tail_[i - head_.size()];
        if (memory[i * width] != wanted || (width == 2 && memory[i * width + 1] != 0)) {
            return false;
        }
    }
    return true;
}

} // namespace tollvane::test
