// A host data server in the test program, late bound like any other one.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <map>
#include <string>

namespace tollvane::environment {

#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

// Lives as long as its test; its references are only counted. Hears what it is asked, and answers
// numbers; its objects are itself.
class FakeHostData final : public IDispatch {
public:
    enum Member : DISPID { location = 4, create = 21, store = 32 };
    static constexpr LONG storedId = 7;

    std::map<std::wstring, DISPID> members{{L"Location", location}, {L"SafeCreateObj", create}};
    std::wstring heard;
    // Set: what the next calls end with.
    HRESULT failure = S_OK;
    std::wstring source;
    std::wstring description;
    int namesAsked = 0;
    ULONG references = 1;

    void learnToStorePayments() { members[L"StorePayment"] = store; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* arguments,
                                     VARIANT* result, EXCEPINFO* exception, UINT*) override;

private:
    HRESULT fail(EXCEPINFO* exception) const;
};

#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

} // namespace tollvane::environment
