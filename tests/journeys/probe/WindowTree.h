#pragma once

#include "tests/journeys/probe/Json.h"

#include <windows.h>

namespace tollvane::probe {

/// An array of the visible top-level windows, the topmost first.
void writeWindows(JsonWriter& json);

/// An array of all descendants of a window, in creation order.
void writeControls(JsonWriter& json, HWND window);

} // namespace tollvane::probe
