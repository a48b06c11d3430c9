#pragma once

#include "platform/Desktop.h"

#include <cstdint>
#include <string>

namespace tollvane {

/// The program's own help file, and the one of the charge component; both without a folder.
inline constexpr const char* kProgramHelp = "ENTRYUI.hlp";
inline constexpr const char* kGatewayHelp = "zendacard.hlp";

/// Opens the contents of a help file in the program's folder. Where the help engine cannot show it,
/// opens the page of the same base name instead. Returns the shell's result code.
std::int32_t openHelpContents(const Desktop& desktop, WindowNumber owner,
                              const std::string& helpFile);

/// The same at a topic; the page has the topic's number as an anchor.
std::int32_t openHelpTopic(const Desktop& desktop, WindowNumber owner, const std::string& helpFile,
                           long topic);

} // namespace tollvane
