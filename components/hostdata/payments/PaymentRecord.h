// One payment record as a client fills and reads it.
#pragma once

#include "components/hostdata/Clock.h"
#include "components/hostdata/payments/PaymentFields.h"
#include "components/hostdata/store/Store.h"

#include <mutex>
#include <optional>

namespace tollvane::hostdata {

// Positioned on nothing, on a stored record (to read), or on a new one (to fill). A new record
// reaches the store only through update(). Stored records are never changed. Everything raises
// HostDataError. Safe to use from several threads.
class PaymentRecord {
public:
    // The operator's user name and the location are written into new records; empty: not known.
    PaymentRecord(Store& store, const Clock& clock, std::string operatorName, std::string location)
        : store_(store), clock_(clock), operator_(std::move(operatorName)),
          location_(std::move(location)) {}

    // -1 positions on no record; an unknown id raises unknownRecord and leaves the position.
    void getRecordById(std::int64_t id);
    // Starts a new, empty record; one that was not stored is forgotten.
    void addNew();
    // Raise noCurrentRecord when there is none. The field is its place in kPaymentFields.
    [[nodiscard]] FieldValue value(std::size_t field) const;
    void setValue(std::size_t field, const FieldValue& value);
    // Stores the new record durably; afterwards the object is positioned on it. When it fails the
    // record stays as filled, so that update() may be called again.
    void update();
    // The same, unless the store holds a payment of this transaction and amount: then false, and
    // the record stays as filled. No other till comes between the look and the storing.
    [[nodiscard]] bool updateOnce();

private:
    [[nodiscard]] PaymentValues stamped() const;
    void requireNew() const;
    void keepStored(PaymentValues values, std::int64_t id);

    Store& store_;
    const Clock& clock_;
    const std::string operator_;
    const std::string location_;
    mutable std::mutex mutex_;
    std::optional<PaymentValues> values_;
    bool adding_ = false;
};

// What was stored in the last days, as PaymentTable::listSince tells it: no more than the newest
// 50,000, which a till can wait for. Raises HostDataError.
[[nodiscard]] std::string storedPayments(Store& store, const Clock& clock, std::int64_t days);

} // namespace tollvane::hostdata
