// Payments that the processor approved and the shop's records do not hold: what a crash between the
// approval and the recording leaves, or a store that could not be written.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <variant>
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

// One of the two lists, of so many days that end now.
using ListOfDays = std::function<std::wstring(std::int32_t days)>;

// The approved payments of the last week that are not stored; oldest first. None when more than
// 50,000 were stored meanwhile, which is more than the host data server lists.
[[nodiscard]] std::vector<MissingPayment> missingOfTheWeek(const ListOfDays& approved,
                                                           const ListOfDays& stored);

struct RecordValue {
    std::wstring field;
    std::variant<std::wstring, std::int64_t> value; // a text, or an amount times 10,000

    bool operator==(const RecordValue&) const = default;
};

// What the record of a missing payment holds: what is known of it, as the program would have
// recorded it.
[[nodiscard]] std::vector<RecordValue> recordOf(const MissingPayment& payment);

} // namespace tollvane::environment
