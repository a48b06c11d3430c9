#include "components/environment/PaymentComparison.h"

#include "components/common/ComFailure.h"
#include "components/environment/HostDataClient.h"
#include "components/environment/dialogs/frmMissingPayments.h"

#include <objbase.h>

#include <algorithm>

namespace tollvane::environment {

namespace {

constexpr const wchar_t* kChargeComponent = L"ZendaSwiftill.Tollvane";
constexpr LONG kNoRecord = -1;
constexpr LONG kDays = 7;
constexpr std::ptrdiff_t kMostStored = 50'000; // that the host data server lists

Remote chargeComponent() {
    CLSID id;
    com::check(CLSIDFromProgID(kChargeComponent, &id));
    com::ComPtr<IDispatch> object;
    com::check(CoCreateInstance(id, nullptr, CLSCTX_ALL, IID_IDispatch,
                                reinterpret_cast<void**>(object.put())));
    return Remote(std::move(object));
}

void set(const Remote& record, const wchar_t* field, const std::wstring& value) {
    const com::Bstr name{std::wstring_view(field)};
    const com::Bstr text{std::wstring_view(value)};
    record.object(L"Item", {argument(name)}).put(L"Value", argument(text));
}

CY currency(std::int64_t scaledAmount) {
    CY amount;
    amount.int64 = scaledAmount;
    return amount;
}

} // namespace

std::vector<MissingPayment> findMissingPayments(const EnvironmentState& state) {
    const std::wstring approved = chargeComponent().text(L"ApprovedPayments", {argument(kDays)});
    if (approved.empty())
        return {};
    // The two clocks may differ: a day more of what is stored.
    const std::wstring stored = state.hostData().storedPayments(kDays + 1);
    if (std::count(stored.begin(), stored.end(), L'\n') >= kMostStored)
        return {}; // what is not on this list may be stored all the same
    return missingPayments(approved, stored);
}

bool recordPayment(const EnvironmentState& state, const MissingPayment& payment) {
    const Remote record(state.hostData().createObject(kPaymentRecord, state.session().token));
    record.call(L"GetrecbyIDNumber", {argument(kNoRecord)});
    record.call(L"AddNew");
    if (!payment.lastFour.empty())
        set(record, L"Account", L"****" + payment.lastFour);
    const com::Bstr amount{std::wstring_view(L"Amount")};
    record.object(L"Item", {argument(amount)}).put(L"Value", argument(currency(payment.amount)));
    set(record, L"Approval", payment.type == L"VOID" ? L"VOID" : payment.approval);
    set(record, L"PaidBy", L"Charge");
    set(record, L"TransID", payment.transaction);
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
