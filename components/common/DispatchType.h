// Late binding: the type description of one dual interface, from the library inside this binary.
#pragma once

#include "components/common/ComPtr.h"

#include <windows.h>

#include <oaidl.h>

#include <utility>

namespace tollvane::com {

class DispatchType {
public:
    explicit DispatchType(const IID& interfaceId) noexcept : interfaceId_(interfaceId) {}

    const IID& interfaceId() const noexcept { return interfaceId_; }

    // The four operations of IDispatch; results as IDispatch answers them.
    HRESULT typeInfo(UINT index, ITypeInfo** out) noexcept;
    HRESULT idsOfNames(LPOLESTR* names, UINT count, DISPID* ids) noexcept;
    HRESULT invoke(void* object, DISPID member, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                   EXCEPINFO* exception, UINT* badArgument) noexcept;

private:
    HRESULT load() noexcept;

    IID interfaceId_;
    ComPtr<ITypeInfo> info_;
};

// True when a call asks for the value of a property that takes no arguments.
bool asksForValue(WORD flags, const DISPPARAMS* arguments, const VARIANT* result) noexcept;

// Answers such a call with the text that `get` gives, and whatever went wrong as `get` does. For
// texts that nobody may find later: the system's own way of calling leaves a copy of the text
// behind in freed memory.
template <class Get>
HRESULT answerText(VARIANT* result, Get&& get) noexcept {
    BSTR text = nullptr;
    const HRESULT given = std::forward<Get>(get)(&text);
    if (SUCCEEDED(given)) {
        V_VT(result) = VT_BSTR;
        V_BSTR(result) = text;
    }
    return given;
}

// Opens the type library of the binary that this code is linked into.
HRESULT loadOwnTypeLibrary(ITypeLib** out) noexcept;

} // namespace tollvane::com
