// The tables of the host data file.
#pragma once

#include "components/hostdata/store/Database.h"

#include <string_view>

namespace tollvane::hostdata {

// Creates the tables in a new file; checks an existing one, and brings one of an older version up
// to date. Raises HostDataError for a damaged file, for the file of another program, and for one
// written by a newer version.
void prepareSchema(Database& database);

// Reads nothing but the marks of the file: raises HostDataError for the file of another program and
// for one written by a newer version.
void requireOurSchema(Database& database);

// False for a file of an older version that no server has opened since: its payments may lack
// checksums.
[[nodiscard]] bool isUpToDate(Database& database);

// In place of the checksum of a payment that was stored before there were any.
inline constexpr std::string_view kNoChecksum = "none";

} // namespace tollvane::hostdata
