#pragma once

#include "platform/Error.h"
#include "platform/MessageBox.h"

#include <functional>
#include <string_view>

namespace tollvane {

/// Runs an event handler. What it raises is shown by the program's pattern, with the handler's own
/// sentence in front, and goes no further.
void guarded(MessageBoxes& messageBoxes, std::string_view sentence,
             const std::function<void()>& handler) noexcept;

} // namespace tollvane
