#include "platform/win32/VariantConversion.h"

#include "platform/Error.h"
#include "platform/win32/SystemText.h"
#include "platform/win32/Win32Object.h"

#include <limits>

namespace tollvane::win32 {

namespace {

[[noreturn]] void raiseTypeMismatch() {
    throw Error(errornumber::typeMismatch, "Automation", "Type mismatch");
}

/// Writes each alternative of the program's variant into a system variant.
class Writer {
public:
    explicit Writer(VARIANT& target) : target_(target) {}

    void operator()(std::monostate) const { V_VT(&target_) = VT_EMPTY; }
    void operator()(bool value) const {
        V_VT(&target_) = VT_BOOL;
        V_BOOL(&target_) = value ? VARIANT_TRUE : VARIANT_FALSE;
    }
    void operator()(std::int32_t value) const {
        V_VT(&target_) = VT_I4;
        V_I4(&target_) = value;
    }
    void operator()(double value) const {
        V_VT(&target_) = VT_R8;
        V_R8(&target_) = value;
    }
    void operator()(Money value) const {
        V_VT(&target_) = VT_CY;
        V_CY(&target_).int64 = value.scaled();
    }
    void operator()(const DateTime& value) const;
    void operator()(const std::string& value) const { text(value); }
    void operator()(const SecretText& value) const { text(value.view()); }
    void operator()(const ObjectRef& value) const;

private:
    void text(std::string_view value) const {
        V_BSTR(&target_) = Bstr(value).release();
        V_VT(&target_) = VT_BSTR;
    }

    VARIANT& target_;
};

void Writer::operator()(const DateTime& value) const {
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(value.year);
    time.wMonth = static_cast<WORD>(value.month);
    time.wDay = static_cast<WORD>(value.day);
    time.wHour = static_cast<WORD>(value.hour);
    time.wMinute = static_cast<WORD>(value.minute);
    time.wSecond = static_cast<WORD>(value.second);
    if (!SystemTimeToVariantTime(&time, &V_DATE(&target_))) {
        raiseTypeMismatch();
    }
    V_VT(&target_) = VT_DATE;
}

void Writer::operator()(const ObjectRef& value) const {
    IDispatch* dispatch = nullptr;
    if (value) {
        const auto* object = dynamic_cast<const Win32Object*>(value.get());
        if (!object) {
            raiseTypeMismatch();
        }
        dispatch = object->dispatch();
        dispatch->AddRef();
    }
    V_VT(&target_) = VT_DISPATCH;
    V_DISPATCH(&target_) = dispatch;
}

Variant fromDate(DATE date) {
    SYSTEMTIME time{};
    if (!VariantTimeToSystemTime(date, &time)) {
        raiseTypeMismatch();
    }
    return DateTime{time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}

Variant fromUnknown(IUnknown* unknown) {
    if (!unknown) {
        return ObjectRef{};
    }
    ComRef<IDispatch> dispatch;
    if (FAILED(unknown->QueryInterface(IID_IDispatch, dispatch.receive()))) {
        raiseTypeMismatch();
    }
    return ObjectRef(std::make_shared<Win32Object>(std::move(dispatch)));
}

/// What a reference leads to; a component may hand over one that leads nowhere, or in a circle.
Variant fromReference(const VARIANT& answer) {
    constexpr VARTYPE kToVariant = VT_BYREF | VT_VARIANT;
    if (!V_BYREF(&answer)) {
        raiseTypeMismatch();
    }
    if (V_VT(&answer) == kToVariant) {
        if (V_VT(V_VARIANTREF(&answer)) == kToVariant) {
            raiseTypeMismatch();
        }
        return fromSystem(*V_VARIANTREF(&answer));
    }
    VariantHolder direct;
    VARIANT source = answer;
    if (FAILED(VariantCopyInd(&direct.get(), &source))) {
        raiseTypeMismatch();
    }
    return fromSystem(direct.get());
}

/// Numbers of the remaining types, as the narrowest of the program's own that holds them.
Variant fromNumber(const VARIANT& answer) {
    VariantHolder number;
    VARIANT source = answer; // looked at only; the caller's holder gives it back
    if (FAILED(VariantChangeType(&number.get(), &source, 0, VT_R8))) {
        raiseTypeMismatch();
    }
    const double value = V_R8(&number.get());
    const VARTYPE type = V_VT(&answer);
    const bool fraction = type == VT_R4 || type == VT_R8 || type == VT_DECIMAL;
    if (!fraction && value >= std::numeric_limits<std::int32_t>::min() &&
        value <= std::numeric_limits<std::int32_t>::max()) {
        return static_cast<std::int32_t>(value);
    }
    return value;
}

} // namespace

void toSystem(const Variant& value, VARIANT& target) {
    std::visit(Writer(target), value);
}

Variant fromSystem(const VARIANT& answer) {
    if (V_ISBYREF(&answer)) {
        return fromReference(answer);
    }
    switch (V_VT(&answer)) {
    case VT_EMPTY:
    case VT_NULL:
    case VT_ERROR: return std::monostate{};
    case VT_BOOL: return V_BOOL(&answer) != VARIANT_FALSE;
    case VT_CY: return Money::fromScaled(V_CY(&answer).int64);
    case VT_DATE: return fromDate(V_DATE(&answer));
    case VT_BSTR: return narrowed({V_BSTR(&answer), SysStringLen(V_BSTR(&answer))});
    case VT_DISPATCH:
    case VT_UNKNOWN: return fromUnknown(V_UNKNOWN(&answer));
    default: return fromNumber(answer);
    }
}

} // namespace tollvane::win32
