// The payment record and its fields as automation objects.
#pragma once

#include "HostData.h"
#include "components/hostdata/payments/PaymentRecord.h"
#include "components/hostdata/win/HostObject.h"

#include <memory>
#include <string>

namespace tollvane::hostdata {

// Refers to a field by its place, so it follows its record to another position.
class PaymentFieldObject final : public HostObject<IPaymentField> {
public:
    PaymentFieldObject(std::shared_ptr<PaymentRecord> record, std::size_t field);

    HRESULT STDMETHODCALLTYPE get_Value(VARIANT* value) override;
    HRESULT STDMETHODCALLTYPE put_Value(VARIANT value) override;
    HRESULT STDMETHODCALLTYPE get_Name(BSTR* name) override;

private:
    std::shared_ptr<PaymentRecord> record_;
    std::size_t field_;
};

class PaymentRecordObject final : public HostObject<IPaymentRecord> {
public:
    explicit PaymentRecordObject(const std::string& operatorName);

    HRESULT STDMETHODCALLTYPE get_Item(BSTR name, IDispatch** field) override;
    HRESULT STDMETHODCALLTYPE put_Item(BSTR name, VARIANT value) override;
    HRESULT STDMETHODCALLTYPE GetrecbyIDNumber(LONG id) override;
    HRESULT STDMETHODCALLTYPE AddNew() override;
    HRESULT STDMETHODCALLTYPE Update() override;
    HRESULT STDMETHODCALLTYPE UpdateOnce(VARIANT_BOOL* stored) override;

private:
    std::shared_ptr<PaymentRecord> record_;
};

// Stores a new record with these fields, a list of names and one of as many values, in their order;
// answers its number. The first field that is refused raises what its record would, and then
// nothing is stored.
[[nodiscard]] std::int64_t storePayment(const std::string& operatorName, const VARIANT& names,
                                        const VARIANT& values);

} // namespace tollvane::hostdata
