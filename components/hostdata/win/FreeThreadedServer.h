// The life of a local server whose objects may be called from several threads at once, so that one
// client's call never waits for another's.
#pragma once

#include "components/common/ServerClasses.h"

namespace tollvane::hostdata {

// Offers the classes until the last object and lock are gone, withdraws them, calls atRest, and
// returns a little later, when no client can be on its way to this process any more: none that
// found the server is turned away. Raises ComponentError.
void runFreeThreaded(const com::ServerClasses& server, void (*atRest)());

} // namespace tollvane::hostdata
