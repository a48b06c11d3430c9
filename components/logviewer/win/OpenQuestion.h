// Asks for the log when nobody named one.
#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>

namespace tollvane::logviewer {

// Nothing when the operator does not want any. The owner may be null.
[[nodiscard]] std::optional<std::filesystem::path> askWhichLog(HWND owner);

} // namespace tollvane::logviewer
