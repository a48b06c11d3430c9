// The viewer's menu and its keys.
#pragma once

#include <windows.h>

namespace tollvane::logviewer {

enum Command : int {
    commandOpen = 301,
    commandReload,
    commandExit,
    commandCopy,
    commandSelectAll,
    commandClear,
};

// The window owns the menu, the caller the keys.
[[nodiscard]] HMENU viewerMenu();
[[nodiscard]] HACCEL viewerKeys();

} // namespace tollvane::logviewer
