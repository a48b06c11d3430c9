#pragma once

#include "tests/journeys/probe/Json.h"

#include <set>
#include <string>
#include <vector>

#include <windows.h>

namespace tollvane::probe {

/// An array of the visible top-level windows, the topmost first.
void writeWindows(JsonWriter& json);

/// An array of all descendants of a window, in creation order. Of the `unread` names only as many
/// stars are told as they have characters.
void writeControls(JsonWriter& json, HWND window, const std::set<std::wstring>& unread);

/// An array of what changes while somebody types, for some controls of one window: text and focus.
void writeTexts(JsonWriter& json, const std::vector<HWND>& controls);

} // namespace tollvane::probe
