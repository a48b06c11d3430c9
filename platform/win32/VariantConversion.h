#pragma once

#include "platform/Variant.h"
#include "platform/win32/ComHandles.h"

namespace tollvane::win32 {

/// The program's value as the system's. An object that is none of this desktop raises 13.
void toSystem(const Variant& value, VARIANT& target);

/// A component's answer as the program's value; a type that has no counterpart raises 13.
Variant fromSystem(const VARIANT& answer);

} // namespace tollvane::win32
