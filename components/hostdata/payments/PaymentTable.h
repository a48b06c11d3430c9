// The rows of payment records. Each carries a checksum over its number and all its fields: the
// store engine notices damage to the file's structure, not to a text or an amount.
#pragma once

#include "components/hostdata/payments/PaymentFields.h"
#include "components/hostdata/store/Database.h"

#include <optional>
#include <vector>

namespace tollvane::hostdata {

class PaymentTable {
public:
    explicit PaymentTable(Database& database) : database_(database) {}

    // Adds the record under a new id, which is returned; the "Id" among the values is ignored.
    std::int64_t add(const PaymentValues& values);
    // Raises storeDamaged for a record that is not as it was stored.
    [[nodiscard]] std::optional<PaymentValues> find(std::int64_t id);
    // The numbers of the records that are not as they were stored, at most so many.
    [[nodiscard]] std::vector<std::int64_t> damaged(std::size_t most);
    [[nodiscard]] std::int64_t count();
    // Whether there is a record with the "TransID" and "Amount" of these values. Reads every
    // record.
    [[nodiscard]] bool hasSamePayment(const PaymentValues& values);
    // "TransID", tab, "Amount", line feed for each record that has both, newest first, back to the
    // first one that was created before the given time ("2026-11-21T09:05:03Z"), and not more.
    [[nodiscard]] std::string listSince(const std::string& time, std::size_t most);

private:
    Database& database_;
};

} // namespace tollvane::hostdata
