// One transaction field, handed out to automation clients. Keeps the transaction alive.
#pragma once

#include "components/charge/core/ChargeService.h"
#include "components/common/DispatchObject.h"

#include "zendacard.h"

#include <memory>

namespace tollvane::charge {

class FieldObject final : public com::DispatchObject<ITransactionField> {
public:
    FieldObject(std::shared_ptr<ChargeService> service, const FieldDefinition& definition);

    // Answers the value itself, so that no copy of the card's data stays.
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                     UINT* badArgument) override;

    HRESULT STDMETHODCALLTYPE get_cTransactionFields_Value(BSTR* value) override;
    HRESULT STDMETHODCALLTYPE put_cTransactionFields_Value(BSTR value) override;
    HRESULT STDMETHODCALLTYPE get_cTransactionFields_MaximumLength(LONG* length) override;

private:
    std::shared_ptr<ChargeService> service_;
    const FieldDefinition& definition_;
};

} // namespace tollvane::charge
