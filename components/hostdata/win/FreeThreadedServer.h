// The life of a local server whose objects may be called from several threads at once, so that one
// client's call never waits for another's.
#pragma once

#include "components/common/ServerClasses.h"

namespace tollvane::hostdata {

// What the server does beside answering; neither may raise.
struct ServerSteps {
    // Once, when the classes are on offer: what the first client will need, while it comes.
    void (*onOffer)();
    // When the classes were withdrawn.
    void (*atRest)();
};

// Offers the classes until the last object and lock are gone, withdraws them, and goes on serving
// those who found the server just before, until none of them has come for a while. Raises
// ComponentError.
void runFreeThreaded(const com::ServerClasses& server, const ServerSteps& steps);

} // namespace tollvane::hostdata
