#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tollvane {

namespace checksum {

constexpr std::array<std::uint32_t, 256> table() {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < table.size(); ++i) {
        std::uint32_t value = i;
        for (int bit = 0; bit < 8; ++bit) {
            value = (value & 1) != 0 ? 0xEDB88320u ^ (value >> 1) : value >> 1;
        }
        table[i] = value;
    }
    return table;
}

} // namespace checksum

/// CRC-32. Finds damage, not forgery: every change of up to 32 neighbouring bits shows.
inline std::uint32_t crc32(std::string_view bytes) noexcept {
    static constexpr auto table = checksum::table();
    std::uint32_t value = 0xFFFFFFFFu;
    for (const char byte : bytes) {
        value = table[(value ^ static_cast<unsigned char>(byte)) & 0xFF] ^ (value >> 8);
    }
    return value ^ 0xFFFFFFFFu;
}

inline constexpr std::size_t kChecksumDigits = 8;

/// The same as eight hex digits in small letters.
inline std::string checksumText(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text(kChecksumDigits, '0');
    std::uint32_t value = crc32(bytes);
    for (std::size_t place = kChecksumDigits; place > 0; --place, value >>= 4) {
        text[place - 1] = digits[value & 0xF];
    }
    return text;
}

} // namespace tollvane
