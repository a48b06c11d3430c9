// Shows the server's settings over the window of the client that asks for them.
#pragma once

#include <string>

namespace tollvane::hostdata {

// To be called on the thread of the client's call; returns when the person has closed the dialog.
// Raises notAtThisComputer for a client on another computer: nobody there would see the dialog.
void showSettings(const std::string& storePath);

} // namespace tollvane::hostdata
