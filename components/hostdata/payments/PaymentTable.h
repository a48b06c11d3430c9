// The rows of payment records.
#pragma once

#include "components/hostdata/payments/PaymentFields.h"
#include "components/hostdata/store/Database.h"

#include <optional>

namespace tollvane::hostdata {

class PaymentTable {
public:
    explicit PaymentTable(Database& database) : database_(database) {}

    // Adds the record under a new id, which is returned; the "Id" among the values is ignored.
    std::int64_t add(const PaymentValues& values);
    [[nodiscard]] std::optional<PaymentValues> find(std::int64_t id);
    [[nodiscard]] std::int64_t count();

private:
    Database& database_;
};

} // namespace tollvane::hostdata
