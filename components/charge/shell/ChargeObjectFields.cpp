// The named properties over the transaction's fields.
#include "components/charge/shell/ChargeObject.h"
#include "components/charge/shell/FieldTexts.h"
#include "components/common/ComFailure.h"

namespace tollvane::charge {

HRESULT ChargeObject::getText(Field field, BSTR* text) noexcept {
    return com::guarded(interfaceId(), componentSource,
                        [&] { com::give(text, service().fields().get(field)); });
}

HRESULT ChargeObject::putText(Field field, BSTR text) noexcept {
    return com::guarded(interfaceId(), componentSource, [&] { setField(service(), field, text); });
}

HRESULT ChargeObject::getMoney(Field field, CURRENCY* amount) noexcept {
    return com::guarded(interfaceId(), componentSource, [&] {
        if (!amount)
            com::throwFailure(E_POINTER);
        amount->int64 = service().fields().money(field).scaled();
    });
}

HRESULT ChargeObject::putMoney(Field field, CURRENCY amount) noexcept {
    return com::guarded(interfaceId(), componentSource, [&] {
        service().fields().setMoney(field, Money::fromScaled(amount.int64));
    });
}

HRESULT ChargeObject::get_Amount(CURRENCY* amount) {
    return getMoney(Field::Amount, amount);
}
HRESULT ChargeObject::put_Amount(CURRENCY amount) {
    return putMoney(Field::Amount, amount);
}
HRESULT ChargeObject::get_Tax(CURRENCY* amount) {
    return getMoney(Field::Tax, amount);
}
HRESULT ChargeObject::put_Tax(CURRENCY amount) {
    return putMoney(Field::Tax, amount);
}

HRESULT ChargeObject::get_TaxExempt(VARIANT_BOOL* exempt) {
    return com::guarded(interfaceId(), componentSource,
                        [&] { com::give(exempt, service().fields().flag(Field::TaxExempt)); });
}

HRESULT ChargeObject::put_TaxExempt(VARIANT_BOOL exempt) {
    return com::guarded(interfaceId(), componentSource, [&] {
        service().fields().setFlag(Field::TaxExempt, exempt != VARIANT_FALSE);
    });
}

HRESULT ChargeObject::get_CardNumber(BSTR* text) {
    return getText(Field::CardNumber, text);
}
HRESULT ChargeObject::put_CardNumber(BSTR text) {
    return putText(Field::CardNumber, text);
}
HRESULT ChargeObject::get_FirstName(BSTR* text) {
    return getText(Field::FirstName, text);
}
HRESULT ChargeObject::put_FirstName(BSTR text) {
    return putText(Field::FirstName, text);
}
HRESULT ChargeObject::get_LastName(BSTR* text) {
    return getText(Field::LastName, text);
}
HRESULT ChargeObject::put_LastName(BSTR text) {
    return putText(Field::LastName, text);
}
HRESULT ChargeObject::get_ExpirationDate(BSTR* text) {
    return getText(Field::ExpirationDate, text);
}
HRESULT ChargeObject::put_ExpirationDate(BSTR text) {
    return putText(Field::ExpirationDate, text);
}
HRESULT ChargeObject::get_StreetAddress(BSTR* text) {
    return getText(Field::Address, text);
}
HRESULT ChargeObject::put_StreetAddress(BSTR text) {
    return putText(Field::Address, text);
}
HRESULT ChargeObject::get_City(BSTR* text) {
    return getText(Field::City, text);
}
HRESULT ChargeObject::put_City(BSTR text) {
    return putText(Field::City, text);
}
HRESULT ChargeObject::get_State(BSTR* text) {
    return getText(Field::State, text);
}
HRESULT ChargeObject::put_State(BSTR text) {
    return putText(Field::State, text);
}
HRESULT ChargeObject::get_ZipCode(BSTR* text) {
    return getText(Field::Zip, text);
}
HRESULT ChargeObject::put_ZipCode(BSTR text) {
    return putText(Field::Zip, text);
}
HRESULT ChargeObject::get_InvoiceNumber(BSTR* text) {
    return getText(Field::InvoiceNumber, text);
}
HRESULT ChargeObject::put_InvoiceNumber(BSTR text) {
    return putText(Field::InvoiceNumber, text);
}
HRESULT ChargeObject::get_Description(BSTR* text) {
    return getText(Field::Description, text);
}
HRESULT ChargeObject::put_Description(BSTR text) {
    return putText(Field::Description, text);
}
HRESULT ChargeObject::get_CustomerEmail(BSTR* text) {
    return getText(Field::Email, text);
}
HRESULT ChargeObject::put_CustomerEmail(BSTR text) {
    return putText(Field::Email, text);
}
HRESULT ChargeObject::get_Track1(BSTR* text) {
    return getText(Field::TrackOne, text);
}
HRESULT ChargeObject::put_Track1(BSTR text) {
    return putText(Field::TrackOne, text);
}

} // namespace tollvane::charge
