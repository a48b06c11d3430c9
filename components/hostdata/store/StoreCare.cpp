#include "components/hostdata/store/StoreCare.h"

#include "components/hostdata/HostDataError.h"
#include "components/hostdata/payments/PaymentTable.h"
#include "components/hostdata/store/Database.h"
#include "components/hostdata/store/Schema.h"
#include "components/hostdata/store/StoreFailure.h"
#include "components/hostdata/store/StoreFiles.h"

#include <sqlite3.h>

#include <chrono>
#include <memory>
#include <thread>

namespace tollvane::hostdata {

namespace {

constexpr int kPagesAtOnce = 1024;
constexpr auto kPause = std::chrono::milliseconds(20);
constexpr int kPauses = 250;
constexpr std::size_t kMostRecords = 20;
constexpr const char* kManyProblems = "PRAGMA integrity_check(20)";

void requireFile(const std::string& path) {
    if (!fileExists(path))
        throw HostDataError(Failure::storeNotOpened,
                            "There is no host data file yet. It is made when the first operator "
                            "is entered.");
}

std::int64_t number(Database& database, const char* sql) {
    auto statement = database.prepare(sql);
    return statement.step() ? statement.number(0) : 0;
}

StoreCheck problemsOf(Database& database) {
    StoreCheck check;
    auto pages = database.prepare(kManyProblems);
    while (pages.step())
        if (const std::string line = pages.text(0); line != "ok")
            check.problems.push_back(line);
    if (!check.sound())
        return check;
    auto references = database.prepare("PRAGMA foreign_key_check");
    while (references.step())
        check.problems.push_back("A row of the table \"" + references.text(0) +
                                 "\" refers to a row of \"" + references.text(2) +
                                 "\" that is not there.");
    if (isUpToDate(database))
        for (const std::int64_t id : PaymentTable(database).damaged(kMostRecords))
            check.problems.push_back("The payment record with the number " + std::to_string(id) +
                                     " is not as it was stored.");
    return check;
}

struct FinishBackup {
    void operator()(sqlite3_backup* backup) const noexcept { sqlite3_backup_finish(backup); }
};

// The tills may write between two steps; the engine then takes up what they wrote.
void copyPages(Database& from, Database& to) {
    const std::unique_ptr<sqlite3_backup, FinishBackup> backup(
        sqlite3_backup_init(to.handle(), "main", from.handle(), "main"));
    if (!backup)
        raiseStoreFailure(sqlite3_extended_errcode(to.handle()), to.handle());
    int pauses = 0;
    for (;;) {
        const int code = sqlite3_backup_step(backup.get(), kPagesAtOnce);
        if (code == SQLITE_DONE)
            return;
        const bool busy = code == SQLITE_BUSY || code == SQLITE_LOCKED;
        if (code != SQLITE_OK && (!busy || ++pauses > kPauses))
            raiseStoreFailure(code, nullptr);
        if (busy)
            std::this_thread::sleep_for(kPause);
    }
}

void copyAndCheck(const std::string& path, const std::string& part) {
    Database from(path);
    Database to(part);
    copyPages(from, to);
    requireOurSchema(to);
    const StoreCheck check = problemsOf(to);
    if (!check.sound())
        throw HostDataError(Failure::storeDamaged,
                            "The host data file is damaged, so no copy was made. Restore it from "
                            "the latest backup copy. (" +
                                check.problems.front() + ")");
}

// The unfinished copy, gone again unless it was moved to its place.
class PartFile {
public:
    explicit PartFile(std::string path) : path_(std::move(path)) { removeFile(path_); }
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;
    ~PartFile() { removeFile(path_); }

    [[nodiscard]] const std::string& path() const noexcept { return path_; }
    void moveTo(const std::string& target) const {
        if (const std::error_code problem = moveFile(path_, target))
            throw HostDataError(Failure::storeNotWritable,
                                "The copy could not be put into its place. (" + problem.message() +
                                    ")");
    }

private:
    std::string path_;
};

} // namespace

StoreFacts storeFacts(const std::string& path) {
    StoreFacts facts;
    if (!fileExists(path))
        return facts;
    Database database(path);
    requireOurSchema(database);
    facts.exists = true;
    facts.bytes = fileSize(path);
    facts.payments = number(database, "SELECT count(*) FROM payments");
    facts.operators = number(database, "SELECT count(*) FROM operators");
    return facts;
}

StoreCheck checkStore(const std::string& path) {
    requireFile(path);
    Database database(path);
    requireOurSchema(database);
    return problemsOf(database);
}

void backUpStore(const std::string& path, const std::string& target) {
    requireFile(path);
    if (isSameFile(path, target))
        throw HostDataError(Failure::backupRefused,
                            "This is the host data file itself. Choose another name for the copy.");
    const PartFile part(target + ".part");
    copyAndCheck(path, part.path());
    part.moveTo(target);
}

} // namespace tollvane::hostdata
