// Class factory over one row of a server's class table.
#pragma once

#include "components/common/ModuleLock.h"
#include "components/common/ServerClasses.h"

#include <windows.h>

#include <unknwn.h>

#include <atomic>

namespace tollvane::com {

// Interfaces have no virtual destructor by nature; the objects' own one is.
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

// The destructor is private: only the last Release may run it.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor)
class ClassFactory final : public IClassFactory {
public:
    explicit ClassFactory(const ServerClass& serverClass) noexcept : class_(serverClass) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (!object)
            return E_POINTER;
        *object = nullptr;
        if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IClassFactory))
            return E_NOINTERFACE;
        *object = static_cast<IClassFactory*>(this);
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
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        if (!object)
            return E_POINTER;
        *object = nullptr;
        return outer ? CLASS_E_NOAGGREGATION : class_.create(iid, object);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
        lock ? lockModule() : unlockModule();
        return S_OK;
    }

private:
    virtual ~ClassFactory() = default;

    const ServerClass& class_;
    std::atomic<ULONG> references_{1};
};

#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

} // namespace tollvane::com
