#include "tests/unit/FreedMemory.h"

#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {

std::string_view wantedText;
std::size_t blocksFound = 0;

void* taken(std::size_t size) noexcept {
    return std::malloc(size > 0 ? size : 1);
}

void* takenOrThrown(std::size_t size) {
    if (void* block = taken(size)) {
        return block;
    }
    throw std::bad_alloc();
}

void giveBack(void* block) noexcept {
    if (block != nullptr && !wantedText.empty()) {
        const std::string_view bytes(static_cast<const char*>(block), malloc_usable_size(block));
        blocksFound += bytes.find(wantedText) != std::string_view::npos ? 1 : 0;
    }
    std::free(block);
}

} // namespace

// All the forms, so that none of them meets a block of the runtime's own allocator.
void* operator new(std::size_t size) {
    return takenOrThrown(size);
}
void* operator new[](std::size_t size) {
    return takenOrThrown(size);
}
void* operator new(std::size_t size, const std::nothrow_t& /*unused*/) noexcept {
    return taken(size);
}
void* operator new[](std::size_t size, const std::nothrow_t& /*unused*/) noexcept {
    return taken(size);
}
void operator delete(void* block) noexcept {
    giveBack(block);
}
void operator delete[](void* block) noexcept {
    giveBack(block);
}
void operator delete(void* block, std::size_t /*size*/) noexcept {
    giveBack(block);
}
void operator delete[](void* block, std::size_t /*size*/) noexcept {
    giveBack(block);
}
void operator delete(void* block, const std::nothrow_t& /*unused*/) noexcept {
    giveBack(block);
}
void operator delete[](void* block, const std::nothrow_t& /*unused*/) noexcept {
    giveBack(block);
}

namespace tollvane::test {

FreedMemory::FreedMemory(std::string_view wanted) {
    blocksFound = 0;
    wantedText = wanted;
}

FreedMemory::~FreedMemory() {
    wantedText = {};
}

std::size_t FreedMemory::blocksWithIt() const {
    return blocksFound;
}

} // namespace tollvane::test
