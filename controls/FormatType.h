#pragma once

#include <cstdint>

namespace tollvane {

/// How typed text is shaped. The first four are what the operator can choose.
namespace formattype {
inline constexpr std::int32_t none = 0;
inline constexpr std::int32_t lowerCase = 1;
inline constexpr std::int32_t upperCase = 2;
inline constexpr std::int32_t properCase = 3;
inline constexpr std::int32_t digitsOnly = 4;
inline constexpr std::int32_t decimalNumber = 5;
} // namespace formattype

} // namespace tollvane
