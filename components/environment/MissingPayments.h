// Payments that the processor approved and the shop's records do not hold: what a crash between the
// approval and the recording leaves, or a store that could not be written.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tollvane::environment {

struct MissingPayment {
    std::wstring transaction;
    std::int64_t amount = 0; // times 10,000; below zero for a refund or void
    std::wstring approval;
    std::wstring lastFour; // of the card; may be empty
    std::wstring time;     // of the approval, "2026-11-21 09:05:03"
    std::wstring type;     // CHARGE, VOICE, REFUND or VOID

    bool operator==(const MissingPayment&) const = default;
};

// The approved payments, in their order, of which the stored ones have none of the same transaction
// and amount. Both are lists as the components tell them: a line each, tabs between the values.
// Lines that cannot be understood are passed over.
[[nodiscard]] std::vector<MissingPayment> missingPayments(std::wstring_view approved,
                                                          std::wstring_view stored);

} // namespace tollvane::environment
