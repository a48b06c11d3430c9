#include "output/PaymentRecord.h"

#include "gateway/TransactionType.h"
#include "platform/Error.h"
#include "platform/LocaleStyle.h"
#include "platform/Text.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace tollvane {

namespace {

constexpr std::int32_t kPaymentRecord = 17;
constexpr std::int32_t kNoRecord = -1;
constexpr std::size_t kShownDigits = 4;

/// A data object of the host data server, positioned on a new record.
class NewPayment {
public:
    explicit NewPayment(const ObjectRef& hostDataServer)
        : record_(asObject(hostDataServer->call("SafeCreateObj", {{kPaymentRecord}}))) {
        record_->call("GetrecbyIDNumber", {{kNoRecord}});
        record_->call("AddNew");
    }

    void set(const char* field, Variant value) {
        asObject(record_->get("Item", {{std::string(field)}}))->put("Value", std::move(value));
    }
    void store() { record_->call("Update"); }

private:
    ObjectRef record_;
};

/// Refunds and voids take money out of the till, whichever sign was typed.
std::optional<Money> recordedAmount(Money amount, int transactionType) {
    switch (transactionType) {
    case transtype::charge: return amount;
    case transtype::refund:
    case transtype::voiding: return amount > Money() ? amount.negated() : amount;
    default: return std::nullopt;
    }
}

std::optional<std::string> recordedApproval(ChargeComponent& charge, int transactionType) {
    switch (transactionType) {
    case transtype::charge:
    case transtype::refund: return charge.ApprovalCode();
    case transtype::voiding: return "VOID";
    default: return std::nullopt;
    }
}

void fill(NewPayment& payment, const Desktop& desktop, ChargeComponent& charge,
          int transactionType) {
    const SecretText pan = charge.CardNumber();
    if (pan.size() >= kShownDigits) {
        payment.set("Account", pan.masked());
    }
    if (const auto amount = recordedAmount(charge.Amount(), transactionType)) {
        payment.set("Amount", *amount);
    }
    if (const auto approval = recordedApproval(charge, transactionType)) {
        payment.set("Approval", *approval);
    }
    if (const auto expiry = dateFromText(charge.ExpirationDate(), dateOrder(desktop.locale))) {
        payment.set("Expire", zeroPadded(expiry->month, 2) + zeroPadded(expiry->year % 100, 2));
    }
    payment.set("PaidBy", std::string("Charge"));
    payment.set("SoldToLast", charge.LastName());
    payment.set("Street", charge.StreetAddress());
    payment.set("TransID", charge.TransactionID());
    payment.set("Zip", charge.ZipCode());
}

} // namespace

bool WriteZendaRecord(const Desktop& desktop, Components& components, int transactionType) {
    return trailed("WriteZendaRecord", [&] {
        ChargeComponent& charge = components.charge();
        if (charge.TestMode()) {
            return true;
        }
        NewPayment payment(components.environment().DCObject());
        fill(payment, desktop, charge, transactionType);
        payment.store();
        return true;
    });
}

} // namespace tollvane
