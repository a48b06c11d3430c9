// What a new operator and a new password must look like.
#pragma once

#include "components/hostdata/operators/Operator.h"
#include "components/hostdata/operators/Secret.h"

namespace tollvane::hostdata {

constexpr std::size_t kLongestName = 40;
constexpr std::size_t kShortestPassword = 8;
constexpr std::size_t kLongestPassword = 128;

// Leading and trailing blanks removed; raises badOperatorData for an empty or overlong name.
[[nodiscard]] OperatorData checkedOperator(const OperatorData& data);

// Raises badOperatorData for a password that is too short, too long or the user name itself.
void checkPassword(const Secret& password, const std::string& userName);

// The text without leading and trailing blanks.
[[nodiscard]] std::string trimmed(const std::string& text);

// Small letters for A to Z, as the store compares user names.
[[nodiscard]] std::string lowered(std::string text);

} // namespace tollvane::hostdata
