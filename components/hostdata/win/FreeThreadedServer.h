// The life of a local server whose objects may be called from several threads at once, so that one
// client's call never waits for another's.
#pragma once

#include "components/common/ServerClasses.h"

namespace tollvane::hostdata {

// Offers the classes until the last object and lock are gone, withdraws them, calls atRest, and
// goes on serving those who found the server just before, until none of them has come for a while.
// Raises ComponentError.
void runFreeThreaded(const com::ServerClasses& server, void (*atRest)());

} // namespace tollvane::hostdata
