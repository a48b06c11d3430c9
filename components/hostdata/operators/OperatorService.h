// The rules for operators: sign-in, and who may change whom.
#pragma once

#include "components/hostdata/Clock.h"
#include "components/hostdata/operators/Operator.h"
#include "components/hostdata/operators/PasswordHash.h"
#include "components/hostdata/operators/Sessions.h"
#include "components/hostdata/store/Store.h"

#include <string>
#include <vector>

namespace tollvane::hostdata {

// The answer to a user name and a password.
struct SignInAnswer {
    // Empty when the sign-in was refused. The answer never says which half was wrong.
    std::string token;
    Operator who;
    // Milliseconds to wait before the next attempt can be right.
    std::int64_t waitMilliseconds = 0;
    // False when it was too early to ask: the password was not looked at.
    bool examined = true;
};

// Everything raises HostDataError. Passwords are hashed outside the store's lock and nothing here
// sleeps, so one till's sign-in never holds up another till. Safe to use from several threads.
class OperatorService {
public:
    OperatorService(Store& store, const Cryptography& cryptography, const Clock& clock,
                    std::int64_t iterations = kPasswordIterations)
        : store_(store), cryptography_(cryptography), clock_(clock), iterations_(iterations),
          sessions_(cryptography) {}

    [[nodiscard]] std::int64_t count();
    // Creates the first operator, holder of every privilege known by name; raises operatorsExist
    // when there is one already.
    std::int64_t createFirst(const OperatorData& data, const Secret& password);

    [[nodiscard]] SignInAnswer signIn(const std::string& userName, const Secret& password);
    void signOut(const std::string& token) { sessions_.end(token); }
    // Who holds the token; raises notSignedIn for an unknown token or a disabled operator.
    [[nodiscard]] Operator signedIn(const std::string& token);
    [[nodiscard]] bool hasPrivilege(const std::string& token, std::int32_t privilege);

    // The following ask for the token of a holder of the "manage operators" privilege.
    [[nodiscard]] std::vector<Operator> list(const std::string& token);
    std::int64_t add(const std::string& token, const OperatorData& data, const Secret& password);
    // The last enabled operator who may manage operators stays enabled and keeps that privilege.
    void setEnabled(const std::string& token, std::int64_t id, bool enabled);
    void setPrivilege(const std::string& token, std::int64_t id, std::int32_t privilege,
                      bool granted);
    // Also ends the operator's sessions and forgets the delays after wrong passwords.
    void resetPassword(const std::string& token, std::int64_t id, const Secret& password);

    // The signed-in operator's own password. A wrong old one counts as a wrong sign-in.
    void changePassword(const std::string& token, const Secret& oldPassword,
                        const Secret& newPassword);

private:
    std::string nameKey(const std::string& userName);
    void requireManager(Database& database, const std::string& token);
    Operator requireOperator(Database& database, std::int64_t id);
    SignInAnswer refuse(const std::string& key);
    SignInAnswer accept(const std::string& key, const Operator& who);

    Store& store_;
    const Cryptography& cryptography_;
    const Clock& clock_;
    std::int64_t iterations_;
    Sessions sessions_;
};

} // namespace tollvane::hostdata
