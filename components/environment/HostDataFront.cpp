#include "components/environment/HostDataFront.h"

#include "components/common/ComFailure.h"
#include "components/common/ComText.h"
#include "components/environment/HostDataClient.h"
#include "components/environment/PaymentDraftObjects.h"

#include <optional>

namespace tollvane::environment {

namespace {

constexpr const wchar_t* kCreate = L"SafeCreateObj";
constexpr const wchar_t* kStore = L"StorePayment";

// Nothing for a member that the server does not have.
std::optional<DISPID> memberOf(IDispatch* server, const wchar_t* name) {
    DISPID member = 0;
    auto* changeable = const_cast<wchar_t*>(name); // the call only reads it
    const HRESULT status =
        server->GetIDsOfNames(IID_NULL, &changeable, 1, LOCALE_USER_DEFAULT, &member);
    if (status == DISP_E_UNKNOWNNAME)
        return std::nullopt;
    com::check(status);
    return member;
}

bool isName(const wchar_t* text, const wchar_t* name) {
    return CompareStringOrdinal(text, -1, name, -1, TRUE) == CSTR_EQUAL;
}

// Whether the one argument of a call asks for a payment record; by value or by reference.
bool asksForPaymentRecord(const DISPPARAMS& arguments) {
    if (arguments.cArgs != 1 || arguments.cNamedArgs != 0)
        return false;
    com::Variant plain;
    com::Variant kind;
    return SUCCEEDED(VariantCopyInd(plain.put(), &arguments.rgvarg[0])) &&
           V_VT(&plain.get()) != VT_DISPATCH &&
           SUCCEEDED(VariantChangeType(kind.put(), const_cast<VARIANT*>(&plain.get()), 0, VT_I4)) &&
           V_I4(&kind.get()) == kPaymentRecord;
}

} // namespace

com::ComPtr<IDispatch> fronted(IDispatch* server) {
    auto shared = com::ComPtr<IDispatch>::share(server);
    const auto store = memberOf(server, kStore);
    const auto create = store ? memberOf(server, kCreate) : std::nullopt;
    if (!create)
        return shared;
    return com::ComPtr<IDispatch>(
        com::makeObject<HostDataFront>(std::move(shared), *create, *store).release());
}

HRESULT HostDataFront::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr)
        return E_POINTER;
    const bool known = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch);
    *object = known ? this : nullptr;
    if (!known)
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG HostDataFront::AddRef() {
    return ++references_;
}

ULONG HostDataFront::Release() {
    const ULONG left = --references_;
    if (left == 0)
        delete this; // NOLINT(cppcoreguidelines-owning-memory): the last reference owns it
    return left;
}

HRESULT HostDataFront::GetTypeInfoCount(UINT* count) {
    return server_->GetTypeInfoCount(count);
}

HRESULT HostDataFront::GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) {
    return server_->GetTypeInfo(index, locale, info);
}

HRESULT HostDataFront::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                     DISPID* ids) {
    const bool known = names != nullptr && ids != nullptr && count == 1 && isName(*names, kCreate);
    if (!known)
        return server_->GetIDsOfNames(iid, names, count, locale, ids);
    *ids = create_;
    return S_OK;
}

HRESULT HostDataFront::Invoke(DISPID member, REFIID iid, LCID locale, WORD flags,
                              DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                              UINT* badArgument) {
    const bool wanted = member == create_ && (flags & DISPATCH_METHOD) != 0 &&
                        arguments != nullptr && result != nullptr &&
                        asksForPaymentRecord(*arguments);
    if (!wanted)
        return server_->Invoke(member, iid, locale, flags, arguments, result, exception,
                               badArgument);
    try {
        auto record = com::makeObject<PaymentDraftObject>(
            std::make_shared<PaymentDraft>(server_.get(), store_));
        VariantInit(result);
        V_VT(result) = VT_DISPATCH;
        V_DISPATCH(result) = record.release();
        return S_OK;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}

} // namespace tollvane::environment
