#pragma once

#include <cstdint>

/// The registry's own numbers, as far as the settings use them.
namespace tollvane::registrynumber {

// Access masks. kWriteText: query and set values, create and enumerate sub keys, notify, and
// change the key's access rights; less than all rights.
inline constexpr std::uint32_t kRead = 0x20019;
inline constexpr std::uint32_t kWriteText = 0x4001F;
inline constexpr std::uint32_t kWriteBytes = 0x20006;
inline constexpr std::uint32_t kDelete = 0x4001F;

// Value types.
inline constexpr std::uint32_t kString = 1;
inline constexpr std::uint32_t kBinary = 3;
inline constexpr std::uint32_t kNumber = 4;

// Status codes.
inline constexpr long kSuccess = 0;
inline constexpr long kInvalidFunction = 1;
inline constexpr long kFileNotFound = 2;
inline constexpr long kNoMoreItems = 259;

} // namespace tollvane::registrynumber
