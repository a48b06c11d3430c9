#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace tollvane {

/// Overwrites memory in a way that the optimiser keeps.
void wipeMemory(void* memory, std::size_t size) noexcept;
/// Overwrites the text's whole buffer, then empties it.
void wipe(std::string& text) noexcept;

/// Card data (PAN, track text, card code): wipes every buffer that it leaves behind and prints
/// masked. Never converts to a plain string by itself.
class SecretText {
public:
    SecretText() = default;
    explicit SecretText(std::string_view text);
    SecretText(const SecretText&) = default;
    SecretText(SecretText&& other) noexcept;
    SecretText& operator=(const SecretText& other);
    SecretText& operator=(SecretText&& other) noexcept;
    ~SecretText();

    std::string_view view() const { return {bytes_.data(), bytes_.size()}; }
    std::size_t size() const { return bytes_.size(); }
    bool empty() const { return bytes_.empty(); }
    void append(char character);
    void clear() noexcept;

    /// "*" for every character but the last four; raises 5 when there are fewer than four.
    std::string masked() const;

    friend bool operator==(const SecretText&, const SecretText&) = default;

private:
    std::vector<char> bytes_;
};

std::ostream& operator<<(std::ostream& out, const SecretText& secret);

} // namespace tollvane
