#include "tests/win32/ComponentDouble.h"

#include "platform/win32/ComHandles.h"
#include "platform/win32/SystemText.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <string_view>

// The system's interfaces have no virtual destructor; objects end in Release.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace tollvane::test {

using win32::widened;

const std::string ComponentDouble::progId = "Tollvane.ComponentDouble";
const std::string ComponentDouble::classId = "{5D2F0C51-8A7B-4F0B-9C1E-6F6C1B3D7A11}";
const std::string ComponentDouble::interfaceId = "{5D2F0C51-8A7B-4F0B-9C1E-6F6C1B3D7A12}";

namespace {

enum Member : DISPID { echo = 1, typeOf, item, put, fail, failWith, bareReturn, late };

struct NamedMember {
    std::wstring_view name;
    Member id;
};

constexpr std::array kMembers{
    NamedMember{L"Echo", echo},         NamedMember{L"TypeOf", typeOf},
    NamedMember{L"Item", item},         NamedMember{L"Put", put},
    NamedMember{L"Fail", fail},         NamedMember{L"FailWith", failWith},
    NamedMember{L"Return", bareReturn}, NamedMember{L"Late", late}};

IID secondInterface() {
    IID id{};
    IIDFromString(widened(ComponentDouble::interfaceId).c_str(), &id);
    return id;
}

BSTR text(const wchar_t* value) {
    return SysAllocString(value);
}

HRESULT STDMETHODCALLTYPE fillInLate(EXCEPINFO* raised) {
    raised->wCode = 77;
    raised->bstrSource = text(L"double");
    raised->bstrDescription = text(L"Filled in late");
    return S_OK;
}

class Object final : public IDispatch {
public:
    virtual ~Object() { VariantClear(&stored_); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
        const bool known = id == IID_IUnknown || id == IID_IDispatch || id == secondInterface();
        *out = known ? static_cast<IDispatch*>(this) : nullptr;
        if (known) {
            AddRef();
        }
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) {
            delete this; // NOLINT(cppcoreguidelines-owning-memory)
        }
        return left;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID,
                                            DISPID* ids) override {
        for (const NamedMember& member : kMembers) {
            if (member.name == names[0]) {
                ids[0] = member.id;
                return S_OK;
            }
        }
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD how, DISPPARAMS* given,
                                     VARIANT* answer, EXCEPINFO* raised, UINT*) override;

private:
    HRESULT useItem(WORD how, DISPPARAMS* given, VARIANT* answer);

    std::atomic<ULONG> references_{1};
    VARIANT stored_{};
};

HRESULT Object::useItem(WORD how, DISPPARAMS* given, VARIANT* answer) {
    if (how & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
        return VariantCopyInd(&stored_, &given->rgvarg[0]);
    }
    return VariantCopy(answer, &stored_);
}

HRESULT raiseWith(EXCEPINFO* raised, WORD code, SCODE result, const wchar_t* description) {
    raised->wCode = code;
    raised->scode = result;
    raised->bstrSource = text(L"double");
    raised->bstrDescription = description ? text(description) : nullptr;
    return DISP_E_EXCEPTION;
}

HRESULT Object::Invoke(DISPID member, REFIID, LCID, WORD how, DISPPARAMS* given, VARIANT* answer,
                       EXCEPINFO* raised, UINT*) {
    const bool argument = given->cArgs > 0;
    switch (member) {
    case item: return useItem(how, given, answer);
    case put: return how & DISPATCH_PROPERTYPUT ? S_OK : DISP_E_MEMBERNOTFOUND;
    case late: raised->pfnDeferredFillIn = &fillInLate; return DISP_E_EXCEPTION;
    default: break;
    }
    if (!argument) {
        return DISP_E_BADPARAMCOUNT;
    }
    VARIANT& first = given->rgvarg[given->cArgs - 1];
    switch (member) {
    case echo: return VariantCopyInd(answer, &first);
    case typeOf:
        V_VT(answer) = VT_I4;
        V_I4(answer) = V_VT(&first);
        return S_OK;
    case fail: return raiseWith(raised, static_cast<WORD>(V_I4(&first)), 0, L"It failed");
    case failWith: return raiseWith(raised, 0, V_I4(&first), L"A result");
    case bareReturn: return V_I4(&first);
    default: return DISP_E_MEMBERNOTFOUND;
    }
}

class Factory final : public IClassFactory {
public:
    virtual ~Factory() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
        const bool known = id == IID_IUnknown || id == IID_IClassFactory;
        *out = known ? static_cast<IClassFactory*>(this) : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    // There is one factory for the whole run; nobody owns it.
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** out) override {
        const win32::ComRef<Object> made(new Object); // NOLINT(cppcoreguidelines-owning-memory)
        return made->QueryInterface(id, out);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

Factory& factory() {
    static Factory theFactory;
    return theFactory;
}

std::string progIdKey() {
    return "Software\\Classes\\" + ComponentDouble::progId;
}

} // namespace

ComponentDouble::ComponentDouble() {
    const std::string key = progIdKey() + "\\CLSID";
    EXPECT_EQ(RegSetKeyValueA(HKEY_LOCAL_MACHINE, key.c_str(), nullptr, REG_SZ, classId.c_str(),
                              static_cast<DWORD>(classId.size() + 1)),
              ERROR_SUCCESS);
    CLSID id{};
    CLSIDFromString(widened(classId).c_str(), &id);
    EXPECT_EQ(CoRegisterClassObject(id, &factory(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                    &registration_),
              S_OK);
}

ComponentDouble::~ComponentDouble() {
    CoRevokeClassObject(registration_);
    RegDeleteTreeA(HKEY_LOCAL_MACHINE, progIdKey().c_str());
}

} // namespace tollvane::test
