#pragma once

#include "tests/journeys/probe/Json.h"
#include "tests/journeys/probe/Names.h"

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <windows.h>

namespace tollvane::probe {

/// How controls are looked at.
struct Look {
    Names& names;
    /// Names of controls of whose texts only as many stars are told as they have characters.
    std::set<std::wstring> unread;
};

/// An array of the visible top-level windows, the topmost first.
void writeWindows(JsonWriter& json);

/// An array of all descendants of a window, in creation order.
void writeControls(JsonWriter& json, HWND window, const Look& look);

/// The same of those descendants that have that name.
void writeControlsNamed(JsonWriter& json, HWND window, std::wstring_view name, const Look& look);

/// The name of the control that has the keyboard in that window's program.
void writeFocused(JsonWriter& json, HWND window, Names& names);

/// An array of what changes while somebody types, for some controls of one window: text and focus.
void writeTexts(JsonWriter& json, const std::vector<HWND>& controls);

} // namespace tollvane::probe
