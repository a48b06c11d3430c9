// The life of a local server whose objects may be called from several threads at once, so that one
// client's call never waits for another's.
#pragma once

#include "components/common/ServerClasses.h"

namespace tollvane::hostdata {

// Offers the classes and returns when the last object and lock are gone. Raises ComponentError.
void runFreeThreaded(const com::ServerClasses& server);

} // namespace tollvane::hostdata
