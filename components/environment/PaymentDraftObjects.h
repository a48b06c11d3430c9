// The payment draft and its fields as automation objects, of the same shape as the server's.
#pragma once

#include "Environment.h"
#include "components/common/DispatchObject.h"
#include "components/environment/PaymentDraft.h"

#include <memory>

namespace tollvane::environment {

class DraftFieldObject final : public com::DispatchObject<IDraftField> {
public:
    DraftFieldObject(std::shared_ptr<PaymentDraft> draft, BSTR name)
        : DispatchObject(IID_IDraftField), draft_(std::move(draft)), name_(com::view(name)) {}

    HRESULT STDMETHODCALLTYPE get_Value(VARIANT* value) override;
    HRESULT STDMETHODCALLTYPE put_Value(VARIANT value) override;
    HRESULT STDMETHODCALLTYPE get_Name(BSTR* name) override;

private:
    const std::shared_ptr<PaymentDraft> draft_;
    const com::Bstr name_;
};

class PaymentDraftObject final : public com::DispatchObject<IPaymentDraft> {
public:
    explicit PaymentDraftObject(std::shared_ptr<PaymentDraft> draft)
        : DispatchObject(IID_IPaymentDraft), draft_(std::move(draft)) {}

    HRESULT STDMETHODCALLTYPE get_Item(BSTR name, IDispatch** field) override;
    HRESULT STDMETHODCALLTYPE put_Item(BSTR name, VARIANT value) override;
    HRESULT STDMETHODCALLTYPE GetrecbyIDNumber(LONG id) override;
    HRESULT STDMETHODCALLTYPE AddNew() override;
    HRESULT STDMETHODCALLTYPE Update() override;
    HRESULT STDMETHODCALLTYPE UpdateOnce(VARIANT_BOOL* stored) override;

private:
    const std::shared_ptr<PaymentDraft> draft_;
};

} // namespace tollvane::environment
