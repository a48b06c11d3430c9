#pragma once

namespace tollvane {

/// The kinds of transaction: the index of the selected `optTransType` button.
namespace transtype {
inline constexpr int charge = 0;
inline constexpr int refund = 1;
inline constexpr int voiding = 2;
inline constexpr int count = 3;
} // namespace transtype

} // namespace tollvane
