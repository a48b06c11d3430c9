// The one set of services that all clients of this server process share.
#pragma once

#include "components/hostdata/operators/OperatorService.h"
#include "components/hostdata/win/BcryptCryptography.h"
#include "components/hostdata/win/ServerSettings.h"

namespace tollvane::hostdata {

// The store is opened when it is first needed. Safe to use from several threads.
struct Services {
    ServerSettings settings = readServerSettings();
    SystemClock clock;
    BcryptCryptography cryptography;
    Store store{settings.storePath};
    OperatorService operators{store, cryptography, clock};
};

// Raises HostDataError or ComponentError when the settings cannot be read.
[[nodiscard]] Services& services();

} // namespace tollvane::hostdata
