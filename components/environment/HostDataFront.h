// What stands between the clients of this process and a host data server in another one.
#pragma once

#include "components/common/ComPtr.h"
#include "components/common/ModuleLock.h"

#include <windows.h>

#include <oaidl.h>

namespace tollvane::environment {

// The server as clients are to use it. A server that stores a payment in one call (StorePayment)
// gets a front, whose SafeCreateObj(17) gives a record that collects its fields in this process;
// every other server is answered as it is. Raises ComponentError when the server cannot be asked.
[[nodiscard]] com::ComPtr<IDispatch> fronted(IDispatch* server);

#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

// Passes everything on to the server under the server's own member numbers, but for the making of
// payment records. Late bound only; lives in the apartment of the environment component.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): the last Release runs it
class HostDataFront final : public IDispatch {
public:
    // The server's numbers for SafeCreateObj and StorePayment.
    HostDataFront(com::ComPtr<IDispatch> server, DISPID create, DISPID store)
        : server_(std::move(server)), create_(create), store_(store) {}
    HostDataFront(const HostDataFront&) = delete;
    HostDataFront& operator=(const HostDataFront&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                     UINT* badArgument) override;

private:
    ~HostDataFront() = default;

    const com::ModuleLock lock_;
    const com::ComPtr<IDispatch> server_;
    const DISPID create_;
    const DISPID store_;
    ULONG references_ = 1;
};

#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

} // namespace tollvane::environment
