// Base of every object that a component hands out: reference count, late binding, error objects.
#pragma once

#include "components/common/ComPtr.h"
#include "components/common/DispatchType.h"
#include "components/common/ModuleLock.h"

#include <windows.h>

#include <oaidl.h>

#include <atomic>
#include <new>
#include <utility>

namespace tollvane::com {

// Interfaces have no virtual destructor by nature; the objects' own one is.
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

// Interface: the dual interface to implement; IID comes from __uuidof or from the second argument
// of the constructor. The object starts with one reference, which makeObject takes over.
// The destructor is protected: only the last Release may run it.
template <class Interface>
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor)
class DispatchObject : public Interface, public ISupportErrorInfo {
public:
    DispatchObject(const DispatchObject&) = delete;
    DispatchObject& operator=(const DispatchObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (!object)
            return E_POINTER;
        *object = nullptr;
        if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch) ||
            IsEqualIID(iid, type_.interfaceId()))
            *object = static_cast<Interface*>(this);
        else if (IsEqualIID(iid, IID_ISupportErrorInfo))
            *object = static_cast<ISupportErrorInfo*>(this);
        else
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0)
            delete this; // NOLINT(cppcoreguidelines-owning-memory): the last reference owns it
        return left;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        if (!count)
            return E_POINTER;
        *count = 1;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** info) override {
        return type_.typeInfo(index, info);
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) override {
        return type_.idsOfNames(names, count, ids);
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* arguments,
                                     VARIANT* result, EXCEPINFO* exception,
                                     UINT* badArgument) override {
        return type_.invoke(static_cast<Interface*>(this), member, flags, arguments, result,
                            exception, badArgument);
    }
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override {
        return IsEqualIID(iid, type_.interfaceId()) ? S_OK : S_FALSE;
    }

protected:
    explicit DispatchObject(const IID& interfaceId) noexcept : type_(interfaceId) {}
    virtual ~DispatchObject() = default;

    const IID& interfaceId() const noexcept { return type_.interfaceId(); }

private:
    ModuleLock lock_;
    std::atomic<ULONG> references_{1};
    DispatchType type_;
};

#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

// Creates an object for a class factory: Object must be default constructible.
template <class Object>
HRESULT createObject(REFIID iid, void** out) noexcept {
    try {
        return makeObject<Object>()->QueryInterface(iid, out);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}

} // namespace tollvane::com
