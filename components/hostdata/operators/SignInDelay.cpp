#include "components/hostdata/operators/SignInDelay.h"

#include <algorithm>

namespace tollvane::hostdata {

namespace {

constexpr std::int64_t kSecond = 1000;
constexpr std::int64_t kMinute = 60 * kSecond;
constexpr std::int64_t kNameQuietTime = 720 * kMinute;
constexpr std::int64_t kAllQuietTime = 10 * kMinute;
constexpr std::int64_t kFreeForAll = 5;
constexpr const char* kAll = "all";

// Doubles the first delay for each further step, up to the limit.
std::int64_t doubling(std::int64_t first, std::int64_t steps, std::int64_t limit) {
    std::int64_t delay = first;
    for (; steps > 0 && delay < limit; --steps)
        delay *= 2;
    return std::min(delay, limit);
}

// A clock that was set back must not lock anybody out for longer than the delay itself.
std::int64_t remaining(std::int64_t notBefore, std::int64_t now, std::int64_t delay) {
    return std::clamp<std::int64_t>(notBefore - now, 0, delay);
}

} // namespace

std::int64_t delayForName(std::int64_t failures) {
    return failures <= 0 ? 0 : doubling(kSecond, failures - 1, 5 * kMinute);
}

std::int64_t delayForAll(std::int64_t failures) {
    return failures <= kFreeForAll
               ? 0
               : doubling(kSecond / 2, failures - kFreeForAll - 1, 10 * kSecond);
}

SignInDelay::Row SignInDelay::load(const std::string& scope, std::int64_t now,
                                   std::int64_t quietTime) {
    auto query = database_.prepare(
        "SELECT failures, last_failure, not_before FROM sign_in_delays WHERE scope = ?");
    Row row;
    if (query.bind(std::string_view(scope)).step())
        row = {query.number(0), query.number(1), query.number(2)};
    const bool quiet = now - row.lastFailure > quietTime && now >= row.notBefore;
    return quiet ? Row{} : row;
}

void SignInDelay::save(const std::string& scope, const Row& row) {
    database_
        .prepare("INSERT OR REPLACE INTO sign_in_delays (scope, failures, last_failure, "
                 "not_before) VALUES (?, ?, ?, ?)")
        .bind(std::string_view(scope))
        .bind(row.failures)
        .bind(row.lastFailure)
        .bind(row.notBefore)
        .run();
}

// Made-up names must not fill the disk.
void SignInDelay::prune() {
    database_.execute("DELETE FROM sign_in_delays WHERE scope <> 'all' AND scope NOT IN (SELECT "
                      "scope FROM sign_in_delays WHERE scope <> 'all' ORDER BY last_failure DESC "
                      "LIMIT 1000)");
}

std::int64_t SignInDelay::beginAttempt(std::int64_t now) {
    Row name = load(nameKey_, now, kNameQuietTime);
    Row all = load(kAll, now, kAllQuietTime);
    const auto wait = std::max(remaining(name.notBefore, now, delayForName(name.failures)),
                               remaining(all.notBefore, now, delayForAll(all.failures)));
    if (wait > 0)
        return wait;
    ++name.failures;
    ++all.failures;
    name = {name.failures, now, now + delayForName(name.failures)};
    all = {all.failures, now, now + delayForAll(all.failures)};
    save(nameKey_, name);
    save(kAll, all);
    prune();
    return 0;
}

std::int64_t SignInDelay::failed(std::int64_t now) {
    Row name = load(nameKey_, now, kNameQuietTime);
    Row all = load(kAll, now, kAllQuietTime);
    name.lastFailure = all.lastFailure = now;
    name.notBefore = now + delayForName(name.failures);
    all.notBefore = now + delayForAll(all.failures);
    save(nameKey_, name);
    save(kAll, all);
    return std::max(name.notBefore, all.notBefore) - now;
}

void SignInDelay::succeeded(std::int64_t now) {
    forgetName();
    Row all = load(kAll, now, kAllQuietTime);
    all.failures = std::max<std::int64_t>(all.failures - 1, 0);
    // The wait that this attempt began is over; an earlier failure's wait was over before it.
    all.notBefore = now;
    save(kAll, all);
}

void SignInDelay::forgetName() {
    database_.prepare("DELETE FROM sign_in_delays WHERE scope = ?")
        .bind(std::string_view(nameKey_))
        .run();
}

} // namespace tollvane::hostdata
