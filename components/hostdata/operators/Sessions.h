// Who is signed in at the tills that this server serves.
#pragma once

#include "components/hostdata/operators/Cryptography.h"

#include <map>
#include <mutex>
#include <optional>
#include <string>

namespace tollvane::hostdata {

// Sessions are kept in memory only: they end with the server. A token is the till's proof of a
// sign-in; nobody can guess one. Safe to use from several threads.
class Sessions {
public:
    explicit Sessions(const Cryptography& cryptography) : cryptography_(cryptography) {}

    [[nodiscard]] std::string begin(std::int64_t operatorId);
    void end(const std::string& token);
    // Ends every session of the operator, but for the one token named.
    void endAllOf(std::int64_t operatorId, const std::string& butNot);
    [[nodiscard]] std::optional<std::int64_t> operatorOf(const std::string& token) const;

private:
    const Cryptography& cryptography_;
    mutable std::mutex mutex_;
    std::map<std::string, std::int64_t> sessions_;
};

} // namespace tollvane::hostdata
