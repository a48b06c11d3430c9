// The tables of the host data file.
#pragma once

#include "components/hostdata/store/Database.h"

namespace tollvane::hostdata {

// Creates the tables in a new file; checks an existing one, and brings one of an older version up
// to date. Raises HostDataError for a damaged file, for the file of another program, and for one
// written by a newer version.
void prepareSchema(Database& database);

// Reads nothing but the marks of the file: raises HostDataError for the file of another program and
// for one written by a newer version.
void requireOurSchema(Database& database);

// False for a file of the first version that no server has opened since.
[[nodiscard]] bool hasPaymentChecksums(Database& database);

} // namespace tollvane::hostdata
