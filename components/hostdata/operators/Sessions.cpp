#include "components/hostdata/operators/Sessions.h"

#include "components/hostdata/operators/PasswordHash.h"

namespace tollvane::hostdata {

namespace {
constexpr std::size_t kTokenLength = 16;
} // namespace

std::string Sessions::begin(std::int64_t operatorId) {
    std::string token = toHex(cryptography_.random(kTokenLength));
    const std::lock_guard lock(mutex_);
    sessions_[token] = operatorId;
    return token;
}

void Sessions::end(const std::string& token) {
    const std::lock_guard lock(mutex_);
    sessions_.erase(token);
}

void Sessions::endAllOf(std::int64_t operatorId, const std::string& butNot) {
    const std::lock_guard lock(mutex_);
    std::erase_if(sessions_, [&](const auto& session) {
        return session.second == operatorId && session.first != butNot;
    });
}

std::optional<std::int64_t> Sessions::operatorOf(const std::string& token) const {
    const std::lock_guard lock(mutex_);
    const auto found = sessions_.find(token);
    return found == sessions_.end() ? std::nullopt : std::optional(found->second);
}

} // namespace tollvane::hostdata
