// Turns the store engine's result codes into readable failures.
#pragma once

struct sqlite3;

namespace tollvane::hostdata {

// Raises the HostDataError that fits the result code. The connection may be null.
[[noreturn]] void raiseStoreFailure(int code, sqlite3* connection);

} // namespace tollvane::hostdata
