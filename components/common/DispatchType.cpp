#include "components/common/DispatchType.h"

#include "components/common/Registration.h"

#include <oleauto.h>

#include <new>

namespace tollvane::com {

HRESULT loadOwnTypeLibrary(ITypeLib** out) noexcept {
    try {
        return LoadTypeLibEx(modulePath().c_str(), REGKIND_NONE, out);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

HRESULT DispatchType::load() noexcept {
    if (info_)
        return S_OK;
    ComPtr<ITypeLib> library;
    if (const HRESULT result = loadOwnTypeLibrary(library.put()); FAILED(result))
        return result;
    return library->GetTypeInfoOfGuid(interfaceId_, info_.put());
}

HRESULT DispatchType::typeInfo(UINT index, ITypeInfo** out) noexcept {
    if (!out)
        return E_POINTER;
    *out = nullptr;
    if (index != 0)
        return DISP_E_BADINDEX;
    if (const HRESULT result = load(); FAILED(result))
        return result;
    *out = ComPtr<ITypeInfo>::share(info_.get()).release();
    return S_OK;
}

HRESULT DispatchType::idsOfNames(LPOLESTR* names, UINT count, DISPID* ids) noexcept {
    if (const HRESULT result = load(); FAILED(result))
        return result;
    return DispGetIDsOfNames(info_.get(), names, count, ids);
}

HRESULT DispatchType::invoke(void* object, DISPID member, WORD flags, DISPPARAMS* arguments,
                             VARIANT* result, EXCEPINFO* exception, UINT* badArgument) noexcept {
    if (const HRESULT loaded = load(); FAILED(loaded))
        return loaded;
    SetErrorInfo(0, nullptr);
    return DispInvoke(object, info_.get(), member, flags, arguments, result, exception,
                      badArgument);
}

bool asksForValue(WORD flags, const DISPPARAMS* arguments, const VARIANT* result) noexcept {
    return (flags & DISPATCH_PROPERTYGET) != 0 && arguments && arguments->cArgs == 0 && result;
}

} // namespace tollvane::com
