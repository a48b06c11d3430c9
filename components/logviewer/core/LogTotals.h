// What the wanted lines come to, test and live apart. Only what was approved is added up.
#pragma once

#include "components/logviewer/core/LogAmount.h"
#include "components/logviewer/core/LogIndex.h"

#include <cstdint>
#include <optional>

namespace tollvane::logviewer {

struct Tally {
    std::uint64_t count = 0;
    Sum sum;

    void add(std::int64_t amount) noexcept {
        ++count;
        sum.add(amount);
    }
};

struct ModeTotals {
    Tally charges; // voice captures too
    Tally refunds; // their sum is what was given back
    Tally voids;   // their sum is what they took back: a voided refund counts below zero
    // Charges less refunds less voids. Nothing when a sum is too large to be told.
    [[nodiscard]] std::optional<std::int64_t> net() const noexcept;
};

struct LogTotals {
    std::uint64_t lines = 0;
    std::uint64_t damaged = 0; // among the lines, and in no sum
    ModeTotals live;
    ModeTotals test;

    void add(const LogRow& row) noexcept;
};

} // namespace tollvane::logviewer
