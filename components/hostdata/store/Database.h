// Owners of a SQLite connection and of its statements. All text is UTF-8.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace tollvane::hostdata {

using Bytes = std::vector<std::uint8_t>;

// One prepared statement: bind all values, then step through its rows.
class Statement {
public:
    Statement(sqlite3* database, std::string_view sql);

    // Values are bound to the first, second, ... question mark, in the order of the calls.
    Statement& bind(std::int64_t value);
    Statement& bind(std::string_view text);
    Statement& bind(const Bytes& blob);
    Statement& bindNull();
    Statement& bind(const std::optional<std::string>& text);
    Statement& bind(const std::optional<std::int64_t>& value);

    // True when there is a row to read. Raises HostDataError when the store fails.
    bool step();
    // Runs a statement that gives no rows.
    void run();

    [[nodiscard]] bool isNull(int column) const;
    [[nodiscard]] std::int64_t number(int column) const;
    [[nodiscard]] std::string text(int column) const;
    [[nodiscard]] Bytes blob(int column) const;

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const noexcept;
    };
    void check(int code) const;

    sqlite3* database_;
    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
    int nextParameter_ = 1;
};

// One connection. Every commit is on the disk before it returns.
class Database {
public:
    // Opens or creates the file. Raises HostDataError when it is damaged, is not a store of ours,
    // or cannot be opened.
    explicit Database(const std::string& path);

    Statement prepare(std::string_view sql) { return Statement(connection_.get(), sql); }
    void execute(const char* sql);
    [[nodiscard]] std::int64_t lastInsertId() const;
    [[nodiscard]] int changedRows() const;
    // For the engine's calls that take a whole connection; stays owned here.
    [[nodiscard]] sqlite3* handle() const noexcept { return connection_.get(); }

private:
    struct Close {
        void operator()(sqlite3* connection) const noexcept;
    };
    std::unique_ptr<sqlite3, Close> connection_;
};

// A write transaction: takes the store's write lock at once, rolls back unless committed.
class Transaction {
public:
    explicit Transaction(Database& database);
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    ~Transaction();
    void commit();

private:
    Database& database_;
    bool open_ = true;
};

} // namespace tollvane::hostdata
