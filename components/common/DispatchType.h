// Late binding: the type description of one dual interface, from the library inside this binary.
#pragma once

#include "components/common/ComPtr.h"

#include <windows.h>

#include <oaidl.h>

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

// Opens the type library of the binary that this code is linked into.
HRESULT loadOwnTypeLibrary(ITypeLib** out) noexcept;

} // namespace tollvane::com
