// A server that runs as a program of its own.
#pragma once

#include "components/common/ServerClasses.h"

namespace tollvane::com {

// The whole life of a local server, for wWinMain to return: "/regserver" and "/unregserver" (with
// "-" too) register and unregister it and end; otherwise it offers its classes and runs a message
// loop on a single-threaded apartment until the last object and lock are gone. Answers the exit
// code (0, or 1 after a failure, whose text is written to the standard error stream).
int runServer(const ServerClasses& server, const wchar_t* commandLine) noexcept;

} // namespace tollvane::com
