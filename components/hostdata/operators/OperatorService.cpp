#include "components/hostdata/operators/OperatorService.h"

#include "components/hostdata/operators/OperatorRules.h"
#include "components/hostdata/operators/OperatorTable.h"
#include "components/hostdata/operators/SignInDelay.h"

namespace tollvane::hostdata {

namespace {

void requireFreeName(OperatorTable& table, const std::string& userName) {
    if (table.find(userName))
        throw HostDataError(Failure::userNameTaken,
                            "There is an operator with this user name already.");
}

void requireAnotherManager(OperatorTable& table, const Operator& who) {
    const bool manager = who.enabled && who.privileges.contains(privilege::manageOperators);
    if (manager && table.holders(privilege::manageOperators) <= 1)
        throw HostDataError(Failure::lastManager,
                            "At least one operator must be able to manage operators.");
}

} // namespace

std::int64_t OperatorService::count() {
    return store_.read([](Database& database) { return OperatorTable(database).count(); });
}

std::int64_t OperatorService::createFirst(const OperatorData& given, const Secret& password) {
    const OperatorData data = checkedOperator(given);
    checkPassword(password, data.userName);
    const PasswordHash hash = hashPassword(cryptography_, password, iterations_);
    return store_.write([&](Database& database) {
        OperatorTable table(database);
        if (table.count() != 0)
            throw HostDataError(Failure::operatorsExist,
                                "The first operator has been created already.");
        const auto id = table.add(data, hash);
        table.setPrivilege(id, privilege::manageOperators, true);
        table.setPrivilege(id, privilege::acceptCardPayments, true);
        return id;
    });
}

// A few iterations under the store's own salt: enough to keep a mistyped password unreadable.
std::string OperatorService::nameKey(const std::string& userName) {
    constexpr std::int64_t iterations = 1000;
    const Bytes salt = store_.read([](Database& database) {
        auto query = database.prepare("SELECT value FROM store_settings WHERE name = 'name_salt'");
        return query.step() ? query.blob(0) : Bytes();
    });
    return toHex(cryptography_.derive(lowered(trimmed(userName)), salt, iterations, 16));
}

SignInAnswer OperatorService::signIn(const std::string& userName, const Secret& password) {
    const std::string key = nameKey(userName);
    const std::int64_t wait = store_.write(
        [&](Database& database) { return SignInDelay(database, key).beginAttempt(clock_.now()); });
    if (wait > 0)
        return {.token = {}, .who = {}, .waitMilliseconds = wait, .examined = false};

    // An unknown name costs the same work as a wrong password.
    PasswordHash stored{iterations_, Bytes(16, 0), Bytes()};
    const auto who = store_.read([&](Database& database) {
        OperatorTable table(database);
        auto found = table.find(trimmed(userName));
        if (found)
            stored = table.password(found->id);
        return found;
    });
    const bool right = matches(cryptography_, stored, password);
    return right && who && who->enabled ? accept(key, *who) : refuse(key);
}

SignInAnswer OperatorService::refuse(const std::string& key) {
    SignInAnswer answer;
    answer.waitMilliseconds = store_.write(
        [&](Database& database) { return SignInDelay(database, key).failed(clock_.now()); });
    return answer;
}

SignInAnswer OperatorService::accept(const std::string& key, const Operator& who) {
    store_.write([&](Database& database) { SignInDelay(database, key).succeeded(clock_.now()); });
    return {.token = sessions_.begin(who.id), .who = who, .waitMilliseconds = 0, .examined = true};
}

Operator OperatorService::signedIn(const std::string& token) {
    const auto id = sessions_.operatorOf(token);
    auto who = store_.read(
        [&](Database& database) { return id ? OperatorTable(database).find(*id) : std::nullopt; });
    if (!who || !who->enabled)
        throw HostDataError(Failure::notSignedIn, "Nobody is signed in. Sign in first.");
    return *who;
}

bool OperatorService::hasPrivilege(const std::string& token, std::int32_t privilege) {
    return signedIn(token).privileges.contains(privilege);
}

void OperatorService::requireManager(Database& database, const std::string& token) {
    const auto id = sessions_.operatorOf(token);
    const auto who = id ? OperatorTable(database).find(*id) : std::nullopt;
    if (!who || !who->enabled)
        throw HostDataError(Failure::notSignedIn, "Nobody is signed in. Sign in first.");
    if (!who->privileges.contains(privilege::manageOperators))
        throw HostDataError(Failure::privilegeMissing,
                            "You do not have the privilege to manage operators.");
}

Operator OperatorService::requireOperator(Database& database, std::int64_t id) {
    auto who = OperatorTable(database).find(id);
    if (!who)
        throw HostDataError(Failure::unknownOperator,
                            "There is no operator with the number " + std::to_string(id) + ".");
    return *who;
}

std::vector<Operator> OperatorService::list(const std::string& token) {
    return store_.read([&](Database& database) {
        requireManager(database, token);
        return OperatorTable(database).all();
    });
}

std::int64_t OperatorService::add(const std::string& token, const OperatorData& given,
                                  const Secret& password) {
    // Asked before the costly hash, and again with it inside one transaction.
    store_.read([&](Database& database) { requireManager(database, token); });
    const OperatorData data = checkedOperator(given);
    checkPassword(password, data.userName);
    const PasswordHash hash = hashPassword(cryptography_, password, iterations_);
    return store_.write([&](Database& database) {
        requireManager(database, token);
        OperatorTable table(database);
        requireFreeName(table, data.userName);
        return table.add(data, hash);
    });
}

void OperatorService::setEnabled(const std::string& token, std::int64_t id, bool enabled) {
    store_.write([&](Database& database) {
        requireManager(database, token);
        OperatorTable table(database);
        const Operator who = requireOperator(database, id);
        if (!enabled)
            requireAnotherManager(table, who);
        table.setEnabled(id, enabled);
    });
    if (!enabled)
        sessions_.endAllOf(id, {});
}

void OperatorService::setPrivilege(const std::string& token, std::int64_t id,
                                   std::int32_t privilege, bool granted) {
    if (privilege <= 0)
        throw HostDataError(Failure::badOperatorData, "A privilege number is 1 or greater.");
    store_.write([&](Database& database) {
        requireManager(database, token);
        OperatorTable table(database);
        const Operator who = requireOperator(database, id);
        if (!granted && privilege == privilege::manageOperators)
            requireAnotherManager(table, who);
        table.setPrivilege(id, privilege, granted);
    });
}

void OperatorService::resetPassword(const std::string& token, std::int64_t id,
                                    const Secret& password) {
    const Operator who = store_.read([&](Database& database) {
        requireManager(database, token);
        return requireOperator(database, id);
    });
    checkPassword(password, who.userName);
    const std::string key = nameKey(who.userName);
    const PasswordHash hash = hashPassword(cryptography_, password, iterations_);
    store_.write([&](Database& database) {
        requireManager(database, token);
        OperatorTable(database).setPassword(id, hash);
        SignInDelay(database, key).forgetName();
    });
    sessions_.endAllOf(id, token);
}

void OperatorService::changePassword(const std::string& token, const Secret& oldPassword,
                                     const Secret& newPassword) {
    const Operator who = signedIn(token);
    checkPassword(newPassword, who.userName);
    const SignInAnswer answer = signIn(who.userName, oldPassword);
    if (answer.token.empty())
        throw HostDataError(Failure::wrongPassword, "The old password is not right.");
    sessions_.end(answer.token);
    const PasswordHash hash = hashPassword(cryptography_, newPassword, iterations_);
    store_.write([&](Database& database) { OperatorTable(database).setPassword(who.id, hash); });
    sessions_.endAllOf(who.id, token);
}

} // namespace tollvane::hostdata
