#include "components/hostdata/payments/PaymentRecord.h"

#include "components/hostdata/payments/PaymentTable.h"

#include <cstdio>
#include <ctime>

namespace tollvane::hostdata {

namespace {

constexpr std::int64_t kMillisecondsOfADay = 86'400'000;
constexpr std::size_t kMostListed = 50'000;

[[noreturn]] void raiseNoCurrent() {
    throw HostDataError(Failure::noCurrentRecord,
                        "There is no current payment record. Call AddNew first.");
}

// "2026-11-21T09:05:03Z", for milliseconds since 1970.
std::string utcText(std::int64_t milliseconds) {
    const auto seconds = static_cast<std::time_t>(milliseconds / 1000);
    std::tm parts{};
#ifdef _WIN32
    gmtime_s(&parts, &seconds);
#else
    gmtime_r(&seconds, &parts);
#endif
    char text[32];
    const auto length = std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts);
    return {text, length};
}

FieldValue textOrNothing(const std::string& text) {
    return text.empty() ? FieldValue() : FieldValue(text);
}

} // namespace

void PaymentRecord::getRecordById(std::int64_t id) {
    const std::lock_guard lock(mutex_);
    if (id == -1) {
        values_.reset();
    } else {
        auto found =
            store_.read([&](Database& database) { return PaymentTable(database).find(id); });
        if (!found)
            throw HostDataError(Failure::unknownRecord,
                                "There is no payment record with the number " + std::to_string(id) +
                                    ".");
        values_ = std::move(found);
    }
    adding_ = false;
}

void PaymentRecord::addNew() {
    const std::lock_guard lock(mutex_);
    values_.emplace();
    adding_ = true;
}

FieldValue PaymentRecord::value(std::size_t field) const {
    const std::lock_guard lock(mutex_);
    if (!values_)
        raiseNoCurrent();
    return values_->at(field);
}

void PaymentRecord::setValue(std::size_t field, const FieldValue& value) {
    const std::lock_guard lock(mutex_);
    if (!values_)
        raiseNoCurrent();
    if (!adding_)
        throw HostDataError(Failure::readOnlyField, "A stored payment record cannot be changed.");
    checkFieldValue(kPaymentFields.at(field), value);
    values_->at(field) = value;
}

PaymentValues PaymentRecord::stamped() const {
    PaymentValues values = *values_;
    values[paymentField("Created")] = utcText(clock_.now());
    values[paymentField("Operator")] = textOrNothing(operator_);
    values[paymentField("Location")] = textOrNothing(location_);
    return values;
}

void PaymentRecord::requireNew() const {
    if (!values_ || !adding_)
        throw HostDataError(Failure::noCurrentRecord,
                            "There is no new payment record to store. Call AddNew first.");
}

void PaymentRecord::keepStored(PaymentValues values, std::int64_t id) {
    values[paymentField("Id")] = id;
    values_ = std::move(values);
    adding_ = false;
}

void PaymentRecord::update() {
    const std::lock_guard lock(mutex_);
    requireNew();
    const PaymentValues values = stamped();
    keepStored(values, store_.write(
                           [&](Database& database) { return PaymentTable(database).add(values); }));
}

bool PaymentRecord::updateOnce() {
    const std::lock_guard lock(mutex_);
    requireNew();
    const PaymentValues values = stamped();
    const auto id = store_.write([&](Database& database) -> std::optional<std::int64_t> {
        PaymentTable table(database);
        if (table.hasSamePayment(values))
            return std::nullopt;
        return table.add(values);
    });
    if (id)
        keepStored(values, *id);
    return id.has_value();
}

std::string storedPayments(Store& store, const Clock& clock, std::int64_t days) {
    const std::string since = utcText(clock.now() - days * kMillisecondsOfADay);
    return store.read(
        [&](Database& database) { return PaymentTable(database).listSince(since, kMostListed); });
}

} // namespace tollvane::hostdata
