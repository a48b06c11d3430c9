#include "components/hostdata/win/PaymentObjects.h"

#include "components/hostdata/win/FieldVariant.h"
#include "components/hostdata/win/Services.h"

namespace tollvane::hostdata {

PaymentFieldObject::PaymentFieldObject(std::shared_ptr<PaymentRecord> record, std::size_t field)
    : HostObject(IID_IPaymentField), record_(std::move(record)), field_(field) {}

HRESULT PaymentFieldObject::get_Value(VARIANT* value) {
    return serve([&] { giveField(value, kPaymentFields.at(field_), record_->value(field_)); });
}

HRESULT PaymentFieldObject::put_Value(VARIANT value) {
    return serve([&] { record_->setValue(field_, fieldValue(kPaymentFields.at(field_), value)); });
}

HRESULT PaymentFieldObject::get_Name(BSTR* name) {
    return serve([&] { give(name, kPaymentFields.at(field_).name); });
}

PaymentRecordObject::PaymentRecordObject(const std::string& operatorName)
    : HostObject(IID_IPaymentRecord),
      record_(std::make_shared<PaymentRecord>(services().store, services().clock, operatorName,
                                              services().settings.location)) {}

HRESULT PaymentRecordObject::get_Item(BSTR name, IDispatch** field) {
    return serve([&] { giveObject<PaymentFieldObject>(field, record_, paymentField(utf8(name))); });
}

HRESULT PaymentRecordObject::put_Item(BSTR name, VARIANT value) {
    return serve([&] {
        const auto field = paymentField(utf8(name));
        record_->setValue(field, fieldValue(kPaymentFields.at(field), value));
    });
}

HRESULT PaymentRecordObject::GetrecbyIDNumber(LONG id) {
    return serve([&] { record_->getRecordById(id); });
}

HRESULT PaymentRecordObject::AddNew() {
    return serve([&] { record_->addNew(); });
}

HRESULT PaymentRecordObject::Update() {
    return serve([&] { record_->update(); });
}

HRESULT PaymentRecordObject::UpdateOnce(VARIANT_BOOL* stored) {
    return serve([&] {
        com::give(stored, false); // so that nothing is stored for one who cannot hear of it
        com::give(stored, record_->updateOnce());
    });
}

} // namespace tollvane::hostdata
