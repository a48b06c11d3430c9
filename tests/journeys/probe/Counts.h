#pragma once

#include "tests/journeys/probe/Json.h"

#include <string_view>

#include <windows.h>

namespace tollvane::probe {

/// An object of what a process holds: kernel handles, GDI objects, and windows of every kind. A
/// member that cannot be told is -1.
void writeCounts(JsonWriter& json, DWORD processId);

/// How many kernel handles the first process of a program holds; -1 when that cannot be told.
void writeHandles(JsonWriter& json, std::wstring_view program);

} // namespace tollvane::probe
