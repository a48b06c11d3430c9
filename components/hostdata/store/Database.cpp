#include "components/hostdata/store/Database.h"

#include "components/hostdata/store/StoreFailure.h"

#include <sqlite3.h>

namespace tollvane::hostdata {

namespace {
constexpr int kBusyMilliseconds = 5000;
} // namespace

void Statement::Finalize::operator()(sqlite3_stmt* statement) const noexcept {
    sqlite3_finalize(statement);
}

Statement::Statement(sqlite3* database, std::string_view sql) : database_(database) {
    sqlite3_stmt* statement = nullptr;
    check(sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &statement,
                             nullptr));
    statement_.reset(statement);
}

void Statement::check(int code) const {
    if (code != SQLITE_OK)
        raiseStoreFailure(code, database_);
}

Statement& Statement::bind(std::int64_t value) {
    check(sqlite3_bind_int64(statement_.get(), nextParameter_++, value));
    return *this;
}

Statement& Statement::bind(std::string_view text) {
    check(sqlite3_bind_text(statement_.get(), nextParameter_++, text.data(),
                            static_cast<int>(text.size()), SQLITE_TRANSIENT));
    return *this;
}

Statement& Statement::bind(const Bytes& blob) {
    check(sqlite3_bind_blob(statement_.get(), nextParameter_++, blob.data(),
                            static_cast<int>(blob.size()), SQLITE_TRANSIENT));
    return *this;
}

Statement& Statement::bindNull() {
    check(sqlite3_bind_null(statement_.get(), nextParameter_++));
    return *this;
}

Statement& Statement::bind(const std::optional<std::string>& text) {
    return text ? bind(std::string_view(*text)) : bindNull();
}

Statement& Statement::bind(const std::optional<std::int64_t>& value) {
    return value ? bind(*value) : bindNull();
}

bool Statement::step() {
    const int code = sqlite3_step(statement_.get());
    if (code != SQLITE_ROW && code != SQLITE_DONE)
        raiseStoreFailure(sqlite3_extended_errcode(database_), database_);
    return code == SQLITE_ROW;
}

void Statement::run() {
    while (step()) {
    }
}

bool Statement::isNull(int column) const {
    return sqlite3_column_type(statement_.get(), column) == SQLITE_NULL;
}

std::int64_t Statement::number(int column) const {
    return sqlite3_column_int64(statement_.get(), column);
}

std::string Statement::text(int column) const {
    const auto* text = sqlite3_column_text(statement_.get(), column);
    if (text == nullptr)
        return {};
    const auto length = sqlite3_column_bytes(statement_.get(), column);
    return {reinterpret_cast<const char*>(text), static_cast<std::size_t>(length)};
}

Bytes Statement::blob(int column) const {
    const auto* data =
        static_cast<const std::uint8_t*>(sqlite3_column_blob(statement_.get(), column));
    const auto length = sqlite3_column_bytes(statement_.get(), column);
    return data != nullptr ? Bytes(data, data + length) : Bytes();
}

void Database::Close::operator()(sqlite3* connection) const noexcept {
    sqlite3_close(connection);
}

Database::Database(const std::string& path) {
    sqlite3* connection = nullptr;
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_FULLMUTEX;
    const int code = sqlite3_open_v2(path.c_str(), &connection, flags, nullptr);
    connection_.reset(connection);
    if (code != SQLITE_OK)
        raiseStoreFailure(code, connection);
    sqlite3_extended_result_codes(connection, 1);
    sqlite3_busy_timeout(connection, kBusyMilliseconds);
    // A rollback journal also works on a network share. It is emptied and flushed, not deleted, so
    // that a commit that has returned survives a loss of power: no system call flushes a deletion
    // on Windows, and a journal that comes back would take the commit back.
    execute("PRAGMA journal_mode=TRUNCATE");
    execute("PRAGMA synchronous=EXTRA");
    execute("PRAGMA foreign_keys=ON");
    // What is deleted or replaced (password hashes) is overwritten in the file.
    execute("PRAGMA secure_delete=ON");
}

void Database::execute(const char* sql) {
    const int code = sqlite3_exec(connection_.get(), sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        raiseStoreFailure(sqlite3_extended_errcode(connection_.get()), connection_.get());
}

std::int64_t Database::lastInsertId() const {
    return sqlite3_last_insert_rowid(connection_.get());
}

int Database::changedRows() const {
    return sqlite3_changes(connection_.get());
}

Transaction::Transaction(Database& database) : database_(database) {
    database_.execute("BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
    if (!open_)
        return;
    try {
        database_.execute("ROLLBACK");
    } catch (...) {
        // The engine has already rolled back by itself; there is nothing left to undo.
        open_ = false;
    }
}

void Transaction::commit() {
    database_.execute("COMMIT");
    open_ = false;
}

} // namespace tollvane::hostdata
