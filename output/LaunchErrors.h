#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tollvane {

/// What the operator is told when `name` could not be launched; `code` is the shell's result.
std::string launchErrorText(std::int32_t code, std::string_view name);

} // namespace tollvane
