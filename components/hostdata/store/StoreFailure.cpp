#include "components/hostdata/store/StoreFailure.h"

#include "components/hostdata/HostDataError.h"

#include <sqlite3.h>

namespace tollvane::hostdata {

namespace {

// The engine's own words help whoever is called in; they come last.
std::string detail(int code, sqlite3* connection) {
    const char* words = connection != nullptr ? sqlite3_errmsg(connection) : sqlite3_errstr(code);
    return " (" + std::string(words) + ", code " + std::to_string(code) + ")";
}

} // namespace

void raiseStoreFailure(int code, sqlite3* connection) {
    const std::string more = detail(code, connection);
    switch (code & 0xFF) {
    case SQLITE_CANTOPEN:
        throw HostDataError(Failure::storeNotOpened, "The host data file cannot be opened. Check "
                                                     "that its folder exists and may be written." +
                                                         more);
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        throw HostDataError(
            Failure::storeDamaged,
            "The host data file is damaged. Restore it from the latest backup copy." + more);
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        throw HostDataError(Failure::storeNotWritable,
                            "The host data file cannot be written. Check its permissions." + more);
    case SQLITE_FULL:
        throw HostDataError(Failure::storeFull,
                            "The disk that holds the host data file is full." + more);
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        throw HostDataError(Failure::storeBusy,
                            "The host data file is in use by another program. Try again." + more);
    case SQLITE_IOERR:
        throw HostDataError(Failure::storeInputOutput,
                            "The host data file could not be read or written." + more);
    default: throw HostDataError(Failure::storeOther, "The host data store failed." + more);
    }
}

} // namespace tollvane::hostdata
