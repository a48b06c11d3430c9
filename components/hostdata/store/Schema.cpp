#include "components/hostdata/store/Schema.h"

#include "components/hostdata/HostDataError.h"

namespace tollvane::hostdata {

namespace {

constexpr std::int64_t kApplicationId = 0x54564844; // "TVHD"
constexpr std::int64_t kFirstVersion = 1;
constexpr std::int64_t kVersionWithChecksums = 2;
// A bit that is lost from this number leaves none that an older store has.
constexpr std::int64_t kVersion = 4;
// About 4 MB, or the payments of some months.
constexpr std::int64_t kPagesCheckedWhole = 1024;

constexpr const char* kTables = R"sql(
CREATE TABLE operators (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    user_name TEXT NOT NULL COLLATE NOCASE UNIQUE,
    first_name TEXT NOT NULL,
    last_name TEXT NOT NULL,
    enabled INTEGER NOT NULL DEFAULT 1,
    iterations INTEGER NOT NULL,
    salt BLOB NOT NULL,
    hash BLOB NOT NULL
);
CREATE TABLE privileges (
    operator_id INTEGER NOT NULL REFERENCES operators(id),
    privilege INTEGER NOT NULL,
    PRIMARY KEY (operator_id, privilege)
) WITHOUT ROWID;
CREATE TABLE sign_in_delays (
    scope TEXT PRIMARY KEY,
    failures INTEGER NOT NULL,
    last_failure INTEGER NOT NULL,
    not_before INTEGER NOT NULL
) WITHOUT ROWID;
CREATE TABLE payments (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    created TEXT NOT NULL,
    operator TEXT,
    location TEXT,
    account TEXT,
    amount INTEGER,
    approval TEXT,
    expire TEXT,
    paid_by TEXT,
    sold_to_last TEXT,
    street TEXT,
    trans_id TEXT,
    zip TEXT,
    checksum TEXT
);
CREATE TABLE store_settings (
    name TEXT PRIMARY KEY,
    value BLOB NOT NULL
) WITHOUT ROWID;
INSERT INTO store_settings (name, value) VALUES ('name_salt', randomblob(16));
PRAGMA application_id=1414940740;
PRAGMA user_version=4;
)sql";

// The payments that a store of the first version holds say that they have no checksum: one without
// anything in its place is damaged.
constexpr const char* kFromFirstVersion = "ALTER TABLE payments ADD COLUMN checksum TEXT";
constexpr const char* kMarkUnchecked = R"sql(
UPDATE payments SET checksum = 'none' WHERE checksum IS NULL;
PRAGMA user_version=4;
)sql";

std::int64_t pragma(Database& database, const char* sql) {
    auto statement = database.prepare(sql);
    return statement.step() ? statement.number(0) : 0;
}

void requireOk(Database& database, const char* check) {
    auto statement = database.prepare(check);
    const std::string answer = statement.step() ? statement.text(0) : std::string();
    if (answer != "ok")
        throw HostDataError(Failure::storeDamaged,
                            "The host data file is damaged. Restore it from the latest backup "
                            "copy. (" +
                                answer + ")");
}

// A store is opened at every start, so looking at it must not take longer with every payment: past
// a size it is only what the sign-in needs and where the next payment goes. The whole of a large
// store is looked at by "Check" and by every backup.
void checkSound(Database& database) {
    if (pragma(database, "PRAGMA page_count") <= kPagesCheckedWhole) {
        requireOk(database, "PRAGMA quick_check(1)");
        return;
    }
    for (const char* check :
         {"PRAGMA quick_check(operators)", "PRAGMA quick_check(privileges)",
          "PRAGMA quick_check(sign_in_delays)", "PRAGMA quick_check(store_settings)"})
        requireOk(database, check);
    auto newest = database.prepare("SELECT * FROM payments ORDER BY id DESC LIMIT 1");
    newest.run();
}

void createTables(Database& database) {
    Transaction transaction(database);
    // Another process may have been quicker.
    if (pragma(database, "PRAGMA user_version") == 0) {
        if (pragma(database, "SELECT count(*) FROM sqlite_master") != 0)
            throw HostDataError(Failure::storeDamaged,
                                "The host data file belongs to another program.");
        database.execute(kTables);
    }
    transaction.commit();
}

void upgradeTables(Database& database) {
    Transaction transaction(database);
    // Another process may have been quicker.
    const std::int64_t version = pragma(database, "PRAGMA user_version");
    if (version < kVersionWithChecksums)
        database.execute(kFromFirstVersion);
    if (version < kVersion)
        database.execute(kMarkUnchecked);
    transaction.commit();
}

} // namespace

bool isUpToDate(Database& database) {
    return pragma(database, "PRAGMA user_version") >= kVersion;
}

void prepareSchema(Database& database) {
    // What the statements above say in numbers and words.
    static_assert(kApplicationId == 1414940740 && kVersion == 4 && kNoChecksum == "none");
    if (pragma(database, "PRAGMA user_version") == 0)
        createTables(database);
    requireOurSchema(database);
    checkSound(database);
    if (!isUpToDate(database))
        upgradeTables(database);
}

void requireOurSchema(Database& database) {
    if (pragma(database, "PRAGMA application_id") != kApplicationId)
        throw HostDataError(Failure::storeDamaged,
                            "The host data file belongs to another program.");
    const std::int64_t version = pragma(database, "PRAGMA user_version");
    if (version < kFirstVersion)
        throw HostDataError(Failure::storeDamaged,
                            "The host data file is damaged: it has lost its version. Restore it "
                            "from the latest backup copy.");
    if (version > kVersion)
        throw HostDataError(Failure::storeTooNew,
                            "The host data file was written by a newer version of this program.");
}

} // namespace tollvane::hostdata
