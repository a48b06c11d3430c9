#pragma once

#include "platform/Desktop.h"

#include <string>

namespace tollvane {

/// Appends a line to "CALLHIST.TXT" in the program's folder. The file is read-only between two
/// appends. Raises the system's error with ":AppendCallHistory" in its source.
void appendCallHistory(const Desktop& desktop, const std::string& line);

} // namespace tollvane
