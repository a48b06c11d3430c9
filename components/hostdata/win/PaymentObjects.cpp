#include "components/hostdata/win/PaymentObjects.h"

#include "components/hostdata/win/FieldVariant.h"
#include "components/hostdata/win/Services.h"
#include "components/hostdata/win/VariantList.h"

namespace tollvane::hostdata {

namespace {

std::string nameOf(const VARIANT& value) {
    com::Variant text;
    com::check(VariantChangeType(text.put(), const_cast<VARIANT*>(&value), 0, VT_BSTR));
    return utf8(V_BSTR(&text.get()));
}

} // namespace

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

std::int64_t storePayment(const std::string& operatorName, const VARIANT& names,
                          const VARIANT& values) {
    const VariantList fields(names);
    const VariantList contents(values);
    if (fields.size() != contents.size())
        throw com::ComponentError(com::runtimeError(5), kSource,
                                  "A payment needs a value for each of its fields.");
    PaymentRecord record(services().store, services().clock, operatorName,
                         services().settings.location);
    record.addNew();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const auto field = paymentField(nameOf(fields.at(i)));
        record.setValue(field, fieldValue(kPaymentFields.at(field), contents.at(i)));
    }
    record.update();
    return std::get<std::int64_t>(record.value(paymentField("Id")));
}

} // namespace tollvane::hostdata
