#pragma once

#include <optional>
#include <string>

#include <windows.h>

namespace tollvane::probe {

/// Sends a message to a window of another process; empty when the window does not answer in time.
std::optional<LRESULT> ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

/// The window's text, also of an edit control of another process.
std::wstring textOf(HWND window);

/// As many stars as the window's text has characters. The text itself is not asked for: to answer,
/// the program would have to copy it.
std::wstring starsOf(HWND window);

/// The name that the program gave the control, by the WM_GETCONTROLNAME message; may be empty.
std::wstring controlNameOf(HWND window);

/// The text of one part of a status bar.
std::wstring statusPartOf(HWND statusBar, int part);

} // namespace tollvane::probe
