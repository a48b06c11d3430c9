#include "components/charge/shell/FieldObject.h"

#include "components/charge/shell/FieldTexts.h"
#include "components/common/ComFailure.h"

#include <utility>

namespace tollvane::charge {

namespace {

// The member number of the value in the type library.
constexpr DISPID valueId = 1;

} // namespace

FieldObject::FieldObject(std::shared_ptr<ChargeService> service, const FieldDefinition& definition)
    : DispatchObject(IID_ITransactionField), service_(std::move(service)), definition_(definition) {
}

HRESULT FieldObject::Invoke(DISPID member, REFIID iid, LCID locale, WORD flags,
                            DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                            UINT* badArgument) {
    if (member == valueId && com::asksForValue(flags, arguments, result)) {
        const HRESULT given = com::answerText(
            result, [this](BSTR* text) { return get_cTransactionFields_Value(text); });
        if (SUCCEEDED(given))
            return given;
    }
    return DispatchObject::Invoke(member, iid, locale, flags, arguments, result, exception,
                                  badArgument);
}

HRESULT FieldObject::get_cTransactionFields_Value(BSTR* value) {
    return com::guarded(interfaceId(), componentSource,
                        [&] { com::give(value, service_->fields().get(definition_.field)); });
}

HRESULT FieldObject::put_cTransactionFields_Value(BSTR value) {
    return com::guarded(interfaceId(), componentSource,
                        [&] { setField(*service_, definition_.field, value); });
}

HRESULT FieldObject::get_cTransactionFields_MaximumLength(LONG* length) {
    return com::guarded(interfaceId(), componentSource,
                        [&] { com::give(length, definition_.maximumLength); });
}

} // namespace tollvane::charge
