#include "components/environment/PaymentDraftObjects.h"

#include "components/common/ComFailure.h"
#include "components/environment/OutArguments.h"

namespace tollvane::environment {

namespace {

// Runs the body of a member. A failure reaches the client as it would from the server itself: with
// the server's words where it gave some, and bare where it did not (a server that is gone).
template <class Body>
HRESULT passOn(const IID& interfaceId, Body&& body) noexcept {
    try {
        std::forward<Body>(body)();
        return S_OK;
    } catch (const BareFailure& failure) {
        SetErrorInfo(0, nullptr);
        return static_cast<HRESULT>(failure.number());
    } catch (...) {
        return com::reportCurrentException(interfaceId, "");
    }
}

} // namespace

HRESULT DraftFieldObject::get_Value(VARIANT* value) {
    return passOn(interfaceId(), [&] {
        if (value == nullptr)
            com::throwFailure(E_POINTER);
        VariantInit(value);
        *value = draft_->field(name_.get()).call(L"Value").release();
    });
}

HRESULT DraftFieldObject::put_Value(VARIANT value) {
    return passOn(interfaceId(), [&] { draft_->set(name_.get(), value); });
}

HRESULT DraftFieldObject::get_Name(BSTR* name) {
    return passOn(interfaceId(), [&] { give(name, draft_->field(name_.get()).text(L"Name")); });
}

HRESULT PaymentDraftObject::get_Item(BSTR name, IDispatch** field) {
    return passOn(interfaceId(), [&] { giveObject<DraftFieldObject>(field, draft_, name); });
}

HRESULT PaymentDraftObject::put_Item(BSTR name, VARIANT value) {
    return passOn(interfaceId(), [&] { draft_->set(name, value); });
}

HRESULT PaymentDraftObject::GetrecbyIDNumber(LONG id) {
    return passOn(interfaceId(), [&] { draft_->getRecordById(id); });
}

HRESULT PaymentDraftObject::AddNew() {
    return passOn(interfaceId(), [&] { draft_->addNew(); });
}

HRESULT PaymentDraftObject::Update() {
    return passOn(interfaceId(), [&] { draft_->update(); });
}

HRESULT PaymentDraftObject::UpdateOnce(VARIANT_BOOL* stored) {
    return passOn(interfaceId(), [&] {
        com::give(stored, false);
        com::give(stored, draft_->updateOnce());
    });
}

} // namespace tollvane::environment
