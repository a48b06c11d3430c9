#include "components/environment/PaymentComparison.h"

#include "components/common/ComFailure.h"
#include "components/environment/HostDataClient.h"
#include "components/environment/dialogs/frmMissingPayments.h"

#include <objbase.h>

namespace tollvane::environment {

namespace {

constexpr const wchar_t* kChargeComponent = L"ZendaSwiftill.Tollvane";
constexpr LONG kNoRecord = -1;

Remote chargeComponent() {
    CLSID id;
    com::check(CLSIDFromProgID(kChargeComponent, &id));
    com::ComPtr<IDispatch> object;
    com::check(CoCreateInstance(id, nullptr, CLSCTX_ALL, IID_IDispatch,
                                reinterpret_cast<void**>(object.put())));
    return Remote(std::move(object));
}

CY currency(std::int64_t scaledAmount) {
    CY amount;
    amount.int64 = scaledAmount;
    return amount;
}

void set(const Remote& record, const RecordValue& value) {
    const com::Bstr name{std::wstring_view(value.field)};
    const Remote item = record.object(L"Item", {argument(name)});
    if (const auto* amount = std::get_if<std::int64_t>(&value.value)) {
        item.put(L"Value", argument(currency(*amount)));
    } else {
        const com::Bstr text{std::wstring_view(std::get<std::wstring>(value.value))};
        item.put(L"Value", argument(text));
    }
}

} // namespace

std::vector<MissingPayment> findMissingPayments(const EnvironmentState& state) {
    return missingOfTheWeek(
        [](LONG days) { return chargeComponent().text(L"ApprovedPayments", {argument(days)}); },
        [&](LONG days) { return state.hostData().storedPayments(days); });
}

bool recordPayment(const EnvironmentState& state, const MissingPayment& payment) {
    const Remote record(state.hostData().createObject(kPaymentRecord, state.session().token));
    record.call(L"GetrecbyIDNumber", {argument(kNoRecord)});
    record.call(L"AddNew");
    for (const RecordValue& each : recordOf(payment))
        set(record, each);
    return record.flag(L"UpdateOnce");
}

std::wstring moneyText(std::int64_t scaledAmount) {
    VARIANT amount = argument(currency(scaledAmount));
    com::Bstr text;
    com::check(VarFormatCurrency(&amount, -1, -2, -2, -2, 0, text.put()));
    return std::wstring(com::view(text.get()));
}

void offerMissingPayments(const EnvironmentState& state, HWND owner) noexcept {
    try {
        const std::vector<MissingPayment> missing = findMissingPayments(state);
        if (!missing.empty())
            frmMissingPayments(state, missing).run(owner);
    } catch (...) {
        // Another charge component or host data server need not know how to be compared; and what
        // keeps these from answering is told when the till wants something of them.
        return;
    }
}

} // namespace tollvane::environment
