#include "components/environment/Automation.h"

#include "components/common/ComFailure.h"

#include <vector>

namespace tollvane::environment {

namespace {

// What a component tells about its failure; frees its texts.
class ExceptionInfo {
public:
    ExceptionInfo() = default;
    ExceptionInfo(const ExceptionInfo&) = delete;
    ExceptionInfo& operator=(const ExceptionInfo&) = delete;
    ~ExceptionInfo() {
        SysFreeString(info_.bstrSource);
        SysFreeString(info_.bstrDescription);
        SysFreeString(info_.bstrHelpFile);
    }
    EXCEPINFO* get() noexcept { return &info_; }
    [[noreturn]] void raise() {
        if (info_.pfnDeferredFillIn != nullptr)
            info_.pfnDeferredFillIn(&info_);
        const auto number = info_.scode != 0 ? static_cast<std::uint32_t>(info_.scode)
                                             : com::runtimeError(info_.wCode);
        throw com::ComponentError(number, com::narrow(info_.bstrSource),
                                  com::narrow(info_.bstrDescription));
    }

private:
    EXCEPINFO info_{};
};

void reach(HRESULT result) {
    if (FAILED(result))
        throw BareFailure(result);
}

com::Variant converted(com::Variant value, VARTYPE type) {
    com::Variant result;
    com::check(VariantChangeType(result.put(), const_cast<VARIANT*>(&value.get()), 0, type));
    return result;
}

} // namespace

VARIANT argument(LONG value) noexcept {
    VARIANT made;
    VariantInit(&made);
    V_VT(&made) = VT_I4;
    V_I4(&made) = value;
    return made;
}

VARIANT argument(bool value) noexcept {
    VARIANT made;
    VariantInit(&made);
    V_VT(&made) = VT_BOOL;
    V_BOOL(&made) = value ? VARIANT_TRUE : VARIANT_FALSE;
    return made;
}

VARIANT argument(BSTR text) noexcept {
    VARIANT made;
    VariantInit(&made);
    V_VT(&made) = VT_BSTR;
    V_BSTR(&made) = text;
    return made;
}

VARIANT argument(CY value) noexcept {
    VARIANT made;
    VariantInit(&made);
    V_VT(&made) = VT_CY;
    V_CY(&made) = value;
    return made;
}

VARIANT argument(const com::Bstr& text) noexcept {
    return argument(text.get());
}

BareFailure::BareFailure(HRESULT result)
    : ComponentError(static_cast<std::uint32_t>(result), {},
                     com::systemText(static_cast<DWORD>(result))) {}

Remote::Remote(com::ComPtr<IDispatch> object) : object_(std::move(object)) {
    if (!object_)
        com::throwFailure(E_POINTER);
}

com::Variant Remote::call(const wchar_t* name, std::initializer_list<VARIANT> arguments) const {
    return call(memberOf(name), arguments);
}

com::Variant Remote::call(DISPID member, std::initializer_list<VARIANT> arguments) const {
    // Automation takes the last argument first.
    std::vector<VARIANT> reversed(std::rbegin(arguments), std::rend(arguments));
    DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    return invoke(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, parameters);
}

void Remote::put(const wchar_t* name, VARIANT value) const {
    DISPID assigned = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&value, &assigned, 1, 1};
    invoke(memberOf(name), DISPATCH_PROPERTYPUT, parameters);
}

DISPID Remote::memberOf(const wchar_t* name) const {
    DISPID member = 0;
    auto* changeable = const_cast<wchar_t*>(name); // the call only reads it
    reach(object_->GetIDsOfNames(IID_NULL, &changeable, 1, LOCALE_USER_DEFAULT, &member));
    return member;
}

com::Variant Remote::invoke(DISPID member, WORD way, DISPPARAMS& parameters) const {
    ExceptionInfo exception;
    com::Variant result;
    const HRESULT status = object_->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, way, &parameters,
                                           way == DISPATCH_PROPERTYPUT ? nullptr : result.put(),
                                           exception.get(), nullptr);
    if (status == DISP_E_EXCEPTION)
        exception.raise();
    reach(status);
    return result;
}

com::ComPtr<IDispatch> Remote::pointer(const wchar_t* name,
                                       std::initializer_list<VARIANT> arguments) const {
    const com::Variant value = converted(call(name, arguments), VT_DISPATCH);
    return com::ComPtr<IDispatch>::share(V_DISPATCH(&value.get()));
}

Remote Remote::object(const wchar_t* name, std::initializer_list<VARIANT> arguments) const {
    return Remote(pointer(name, arguments));
}

std::wstring Remote::text(const wchar_t* name, std::initializer_list<VARIANT> arguments) const {
    const com::Variant value = converted(call(name, arguments), VT_BSTR);
    return std::wstring(com::view(V_BSTR(&value.get())));
}

LONG Remote::number(const wchar_t* name, std::initializer_list<VARIANT> arguments) const {
    return V_I4(&converted(call(name, arguments), VT_I4).get());
}

LONG Remote::number(DISPID member, std::initializer_list<VARIANT> arguments) const {
    return V_I4(&converted(call(member, arguments), VT_I4).get());
}

bool Remote::flag(const wchar_t* name, std::initializer_list<VARIANT> arguments) const {
    return V_BOOL(&converted(call(name, arguments), VT_BOOL).get()) != VARIANT_FALSE;
}

} // namespace tollvane::environment
