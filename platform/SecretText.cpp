#include "platform/SecretText.h"

#include "platform/Error.h"

#include <algorithm>
#include <utility>

namespace tollvane {

namespace {
constexpr std::size_t kShownDigits = 4;

void zero(char* bytes, std::size_t size) {
    std::fill_n(bytes, size, '\0');
}
} // namespace

void wipeMemory(void* memory, std::size_t size) noexcept {
    // Through a pointer that no compiler sees through: the bytes are written even when nobody reads
    // them.
    void (*const volatile unseen)(char*, std::size_t) = &zero;
    unseen(static_cast<char*>(memory), size);
}

void wipe(std::string& text) noexcept {
    // The bytes between size and capacity may still hold a longer, earlier text.
    text.resize(text.capacity());
    wipeMemory(text.data(), text.size());
    text.clear();
}

SecretText::SecretText(std::string_view text) : bytes_(text.begin(), text.end()) {}

SecretText::SecretText(SecretText&& other) noexcept : bytes_(std::move(other.bytes_)) {}

SecretText& SecretText::operator=(const SecretText& other) {
    if (this != &other) {
        SecretText copy(other);
        *this = std::move(copy);
    }
    return *this;
}

SecretText& SecretText::operator=(SecretText&& other) noexcept {
    if (this != &other) {
        clear();
        bytes_.swap(other.bytes_);
    }
    return *this;
}

SecretText::~SecretText() {
    clear();
}

void SecretText::append(char character) {
    if (bytes_.size() == bytes_.capacity()) {
        // Growing by hand: a vector's own reallocation would leave the old buffer unwiped.
        std::vector<char> grown;
        grown.reserve(bytes_.capacity() * 2 + 32);
        grown.assign(bytes_.begin(), bytes_.end());
        clear();
        bytes_ = std::move(grown);
    }
    bytes_.push_back(character);
}

void SecretText::clear() noexcept {
    wipeMemory(bytes_.data(), bytes_.size());
    bytes_.clear();
}

std::string SecretText::masked() const {
    if (bytes_.size() < kShownDigits) {
        throw Error(errornumber::invalidProcedureCall, "Tollvane",
                    "Invalid procedure call or argument");
    }
    const std::size_t hidden = bytes_.size() - kShownDigits;
    return std::string(hidden, '*') + std::string(view().substr(hidden));
}

} // namespace tollvane
