// A new password, typed twice.
#pragma once

#include "components/environment/Password.h"

#include <optional>

namespace tollvane::environment {

// The typed password when both boxes hold the same one. The boxes are emptied in any case, so that
// nothing typed stays behind.
[[nodiscard]] std::optional<Password> takeNewPassword(HWND box, HWND againBox);

constexpr const char* kPasswordsDiffer = "The two passwords are not the same. Type them again.";
constexpr const char* kPasswordMissing = "Enter the password.";

} // namespace tollvane::environment
