#include "platform/win32/Win32Object.h"

#include "platform/win32/AutomationErrors.h"
#include "platform/win32/SystemText.h"
#include "platform/win32/VariantConversion.h"

#include <deque>

namespace tollvane::win32 {

namespace {

// A component may offer a value as an operation or as a property; the caller cannot know.
constexpr WORD kAsk = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

/// The arguments of one call in the system's order, last one first. Values that travel by
/// reference live beside the list that points to them.
class ArgumentList {
public:
    explicit ArgumentList(const std::vector<Argument>& arguments) : list_(arguments.size()) {
        std::size_t place = arguments.size();
        for (const Argument& argument : arguments) {
            VariantHolder& value = values_.emplace_back();
            toSystem(argument.value, value.get());
            // The list only looks at the values; their holders give them back.
            VARIANT& entry = list_[--place];
            entry = value.get();
            if (argument.byReference && V_VT(&entry) != VT_EMPTY) {
                V_VT(&entry) = static_cast<VARTYPE>(V_VT(&entry) | VT_BYREF);
                V_BYREF(&entry) = &V_BYREF(&value.get());
            }
        }
    }

    VARIANT* data() { return list_.data(); }
    UINT count() const { return static_cast<UINT>(list_.size()); }

private:
    std::deque<VariantHolder> values_;
    std::vector<VARIANT> list_;
};

DISPID idOf(IDispatch* object, std::string_view member) {
    const std::wstring name = widened(member);
    auto* names = const_cast<LPOLESTR>(name.c_str());
    DISPID id = DISPID_UNKNOWN;
    const HRESULT result = object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(result)) {
        throw automationError(result, member);
    }
    return id;
}

} // namespace

Variant Win32Object::invoke(std::string_view member, std::vector<Argument>& arguments, WORD how) {
    const auto id = idOf(dispatch_.get(), member);
    ArgumentList list(arguments);
    DISPPARAMS parameters{list.data(), nullptr, list.count(), 0};
    DISPID assigned = DISPID_PROPERTYPUT;
    const bool assigning = (how & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (assigning) {
        parameters.rgdispidNamedArgs = &assigned;
        parameters.cNamedArgs = 1;
    }
    VariantHolder answer;
    EXCEPINFO raised{};
    SetErrorInfo(0, nullptr);
    const HRESULT result = dispatch_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, how, &parameters,
                                             assigning ? nullptr : &answer.get(), &raised, nullptr);
    if (result == DISP_E_EXCEPTION) {
        throw componentError(raised, member);
    }
    if (FAILED(result)) {
        throw callError(result, member);
    }
    return fromSystem(answer.get());
}

Variant Win32Object::call(std::string_view member, std::vector<Argument> arguments) {
    return invoke(member, arguments, kAsk);
}

Variant Win32Object::get(std::string_view member, std::vector<Argument> arguments) {
    return invoke(member, arguments, kAsk);
}

void Win32Object::put(std::string_view member, Variant value) {
    std::vector<Argument> arguments{{std::move(value)}};
    invoke(member, arguments, DISPATCH_PROPERTYPUT);
}

void Win32Object::putReference(std::string_view member, ObjectRef object) {
    std::vector<Argument> arguments{{std::move(object)}};
    try {
        invoke(member, arguments, DISPATCH_PROPERTYPUTREF);
    } catch (const Error& error) {
        if (error.number() != errornumber::memberNotFound) {
            throw;
        }
        invoke(member, arguments, DISPATCH_PROPERTYPUT);
    }
}

} // namespace tollvane::win32
