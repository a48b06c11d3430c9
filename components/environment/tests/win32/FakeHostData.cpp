#include "components/environment/tests/win32/FakeHostData.h"

#include "components/common/ComText.h"

namespace tollvane::environment {

namespace {

std::wstring textOf(const VARIANT& value) {
    com::Variant text;
    const HRESULT status = VariantChangeType(text.put(), const_cast<VARIANT*>(&value), 0, VT_BSTR);
    return FAILED(status) ? L"?" : std::wstring(com::view(V_BSTR(&text.get())));
}

const VARIANT* elements(const VARIANT& list) {
    return static_cast<const VARIANT*>(V_ARRAY(&list)->pvData);
}

// "Zip=1 PaidBy=Charge", from the two lists in the order of automation: the last one first.
std::wstring fieldsOf(const DISPPARAMS& arguments) {
    const VARIANT& names = arguments.rgvarg[1];
    const VARIANT& values = arguments.rgvarg[0];
    std::wstring text;
    for (ULONG i = 0; i < V_ARRAY(&names)->rgsabound[0].cElements; ++i)
        text += L" " + textOf(elements(names)[i]) + L"=" + textOf(elements(values)[i]);
    return text;
}

} // namespace

HRESULT FakeHostData::QueryInterface(REFIID iid, void** object) {
    const bool known = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch);
    *object = known ? this : nullptr;
    if (known)
        AddRef();
    return known ? S_OK : E_NOINTERFACE;
}

HRESULT FakeHostData::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

HRESULT FakeHostData::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
    ++namesAsked;
    if (failure != S_OK && source.empty())
        return failure;
    const auto found = members.find(*names);
    *ids = found == members.end() ? DISPID_UNKNOWN : found->second;
    return found == members.end() ? DISP_E_UNKNOWNNAME : S_OK;
}

HRESULT FakeHostData::fail(EXCEPINFO* exception) const {
    if (source.empty())
        return failure;
    *exception = {};
    exception->scode = failure;
    exception->bstrSource = SysAllocString(source.c_str());
    exception->bstrDescription = SysAllocString(description.c_str());
    return DISP_E_EXCEPTION;
}

HRESULT FakeHostData::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* arguments,
                             VARIANT* result, EXCEPINFO* exception, UINT*) {
    heard += std::to_wstring(member);
    if (member == store)
        heard += fieldsOf(*arguments);
    else if (arguments->cArgs == 1)
        heard += L" " + textOf(arguments->rgvarg[0]);
    heard += L";";
    if (failure != S_OK)
        return fail(exception);
    V_VT(result) = member == create ? VT_DISPATCH : VT_I4;
    if (member == create) {
        AddRef();
        V_DISPATCH(result) = this;
    } else {
        V_I4(result) = storedId;
    }
    return S_OK;
}

} // namespace tollvane::environment
