// How wrong passwords slow down the next attempt, for one user name and for all of them together.
#pragma once

#include "components/hostdata/store/Database.h"

#include <cstdint>
#include <string>

namespace tollvane::hostdata {

// Milliseconds to wait after the n-th wrong password in a row for one user name:
// 1, 2, 4, ... seconds, at most five minutes.
[[nodiscard]] std::int64_t delayForName(std::int64_t failures);

// Milliseconds that every sign-in waits after n wrong passwords at all tills together within ten
// quiet minutes: none up to five, then half a second doubling to at most ten seconds, so that
// guessing many names is slow and an honest operator at another till is not locked out.
[[nodiscard]] std::int64_t delayForAll(std::int64_t failures);

// The delays live in the store: ending the server does not reset them. Each call is to be made
// within a write transaction; "now" is milliseconds since 1970.
class SignInDelay {
public:
    // nameKey stands for the user name; it never is the name itself, since people type their
    // password into the wrong box.
    SignInDelay(Database& database, std::string nameKey)
        : database_(database), nameKey_(std::move(nameKey)) {}

    // Milliseconds still to wait; 0 when an attempt is allowed now. An allowed attempt counts as a
    // failure at once, until succeeded() is called: killing the server between the question and
    // the answer, or asking twice at the same moment, gains nothing.
    std::int64_t beginAttempt(std::int64_t now);

    // The attempt was wrong: the delay starts now. Returns the milliseconds to wait.
    std::int64_t failed(std::int64_t now);

    // The attempt was right: the name's failures are forgotten and this attempt with them.
    void succeeded(std::int64_t now);

    // Forgets the name's failures (its password was set anew by a manager).
    void forgetName();

private:
    struct Row {
        std::int64_t failures = 0;
        std::int64_t lastFailure = 0;
        std::int64_t notBefore = 0;
    };
    Row load(const std::string& scope, std::int64_t now, std::int64_t quietTime);
    void save(const std::string& scope, const Row& row);
    void prune();

    Database& database_;
    std::string nameKey_;
};

} // namespace tollvane::hostdata
