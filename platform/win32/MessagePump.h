#pragma once

#include <windows.h>

#include <functional>

namespace tollvane::win32 {

class Ui;

/// Handles one message. A key of a form of ours reaches its handlers before its character is made,
/// so that a dropped key has none.
void dispatch(Ui& ui, MSG& message);

/// Handles messages as they come while the condition holds, or until the program is told to quit.
void pumpWhile(Ui& ui, const std::function<bool()>& condition);

/// Handles what is waiting. True when there was anything.
bool pumpWaiting(Ui& ui);

} // namespace tollvane::win32
