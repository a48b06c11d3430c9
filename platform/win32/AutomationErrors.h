#pragma once

#include "platform/Error.h"

#include <windows.h>

#include <oaidl.h>

#include <string_view>

namespace tollvane::win32 {

/// A failed result of the automation calls as the numbers and texts that this family of programs
/// knows; a result that has none keeps its number and the system's text.
Error automationError(HRESULT result, std::string_view source);

/// What a component raised: its own number, source and description. Frees the texts of `raised`.
Error componentError(EXCEPINFO& raised, std::string_view source);

/// The failure of a call that returned `result` and may have left an error object behind.
Error callError(HRESULT result, std::string_view source);

} // namespace tollvane::win32
