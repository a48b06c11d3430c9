#pragma once

#include "tests/journeys/probe/Json.h"

#include <windows.h>

namespace tollvane::probe {

/// An object of what a process holds: kernel handles, GDI objects, and windows of every kind. A
/// member that cannot be told is -1.
void writeCounts(JsonWriter& json, DWORD processId);

} // namespace tollvane::probe
