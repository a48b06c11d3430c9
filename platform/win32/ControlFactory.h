#pragma once

#include "platform/win32/NativeControl.h"

#include <memory>

namespace tollvane::win32 {

/// Builds a control of a form's table; `form` is the description that it stands in.
std::unique_ptr<NativeControl> makeControl(FormCore& core, const FormDescription& form,
                                           const ControlDescription& description);

} // namespace tollvane::win32
