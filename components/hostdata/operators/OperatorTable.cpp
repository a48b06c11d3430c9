#include "components/hostdata/operators/OperatorTable.h"

namespace tollvane::hostdata {

namespace {
constexpr const char* kColumns =
    "SELECT id, user_name, first_name, last_name, enabled FROM operators ";

std::string select(const char* rest) {
    return std::string(kColumns) + rest;
}
} // namespace

std::int64_t OperatorTable::count() {
    auto query = database_.prepare("SELECT count(*) FROM operators");
    return query.step() ? query.number(0) : 0;
}

Operator OperatorTable::read(Statement& row) {
    Operator found{row.number(0), row.text(1), row.text(2), row.text(3), row.number(4) != 0, {}};
    auto query = database_.prepare("SELECT privilege FROM privileges WHERE operator_id = ?");
    query.bind(found.id);
    while (query.step())
        found.privileges.insert(static_cast<std::int32_t>(query.number(0)));
    return found;
}

std::optional<Operator> OperatorTable::find(std::string_view userName) {
    auto query = database_.prepare(select("WHERE user_name = ?"));
    if (!query.bind(userName).step())
        return std::nullopt;
    return read(query);
}

std::optional<Operator> OperatorTable::find(std::int64_t id) {
    auto query = database_.prepare(select("WHERE id = ?"));
    if (!query.bind(id).step())
        return std::nullopt;
    return read(query);
}

std::vector<Operator> OperatorTable::all() {
    auto query = database_.prepare(select("ORDER BY last_name, first_name, id"));
    std::vector<Operator> operators;
    while (query.step())
        operators.push_back(read(query));
    return operators;
}

PasswordHash OperatorTable::password(std::int64_t id) {
    auto query = database_.prepare("SELECT iterations, salt, hash FROM operators WHERE id = ?");
    if (!query.bind(id).step())
        return {};
    return {query.number(0), query.blob(1), query.blob(2)};
}

std::int64_t OperatorTable::holders(std::int32_t privilege) {
    auto query = database_.prepare("SELECT count(*) FROM privileges JOIN operators ON id = "
                                   "operator_id WHERE privilege = ? AND enabled <> 0");
    return query.bind(std::int64_t{privilege}).step() ? query.number(0) : 0;
}

std::int64_t OperatorTable::add(const OperatorData& data, const PasswordHash& password) {
    database_
        .prepare("INSERT INTO operators (user_name, first_name, last_name, iterations, salt, "
                 "hash) VALUES (?, ?, ?, ?, ?, ?)")
        .bind(std::string_view(data.userName))
        .bind(std::string_view(data.firstName))
        .bind(std::string_view(data.lastName))
        .bind(password.iterations)
        .bind(password.salt)
        .bind(password.hash)
        .run();
    return database_.lastInsertId();
}

void OperatorTable::setPassword(std::int64_t id, const PasswordHash& password) {
    database_.prepare("UPDATE operators SET iterations = ?, salt = ?, hash = ? WHERE id = ?")
        .bind(password.iterations)
        .bind(password.salt)
        .bind(password.hash)
        .bind(id)
        .run();
}

void OperatorTable::setEnabled(std::int64_t id, bool enabled) {
    database_.prepare("UPDATE operators SET enabled = ? WHERE id = ?")
        .bind(std::int64_t{enabled ? 1 : 0})
        .bind(id)
        .run();
}

void OperatorTable::setPrivilege(std::int64_t id, std::int32_t privilege, bool granted) {
    database_
        .prepare(granted ? "INSERT OR IGNORE INTO privileges (operator_id, privilege) VALUES (?, ?)"
                         : "DELETE FROM privileges WHERE operator_id = ? AND privilege = ?")
        .bind(id)
        .bind(std::int64_t{privilege})
        .run();
}

} // namespace tollvane::hostdata
