#include "components/hostdata/win/FieldVariant.h"

#include "components/common/ComFailure.h"
#include "components/common/ComText.h"
#include "components/hostdata/win/HostObject.h"

namespace tollvane::hostdata {

namespace {

bool isNothing(const VARIANT& value) {
    return V_VT(&value) == VT_EMPTY || V_VT(&value) == VT_NULL || V_VT(&value) == VT_ERROR;
}

// The conversion calls only read their source, whatever their declarations say.
VARIANT* source(const VARIANT& value) {
    return const_cast<VARIANT*>(&value);
}

[[noreturn]] void raiseConversion(const FieldDefinition& field, HRESULT result) {
    const bool overflow = result == DISP_E_OVERFLOW;
    throw com::ComponentError(com::runtimeError(overflow ? 6 : 13), kSource,
                              "The value for the field \"" + std::string(field.name) +
                                  (overflow ? "\" is too large." : "\" is of a wrong type."));
}

com::Variant converted(const FieldDefinition& field, const VARIANT& value, VARTYPE type) {
    com::Variant result;
    const HRESULT status =
        VariantChangeTypeEx(result.put(), source(value), LOCALE_USER_DEFAULT, 0, type);
    if (FAILED(status))
        raiseConversion(field, status);
    return result;
}

} // namespace

FieldValue fieldValue(const FieldDefinition& field, const VARIANT& value) {
    com::Variant plain;
    // An object gives its default value, a reference what it refers to.
    com::check(VariantCopyInd(plain.put(), source(value)));
    if (isNothing(plain.get()))
        return {};
    if (field.type == FieldType::text)
        return utf8(V_BSTR(&converted(field, plain.get(), VT_BSTR).get()));
    return std::int64_t{V_CY(&converted(field, plain.get(), VT_CY).get()).int64};
}

void giveField(VARIANT* out, const FieldDefinition& field, const FieldValue& value) {
    if (out == nullptr)
        com::throwFailure(E_POINTER);
    VariantInit(out);
    if (const auto* text = std::get_if<std::string>(&value)) {
        BSTR copy = nullptr;
        give(&copy, *text);
        V_VT(out) = VT_BSTR;
        V_BSTR(out) = copy;
    } else if (const auto* number = std::get_if<std::int64_t>(&value)) {
        const bool money = field.type == FieldType::money;
        V_VT(out) = money ? VT_CY : VT_I4;
        if (money)
            V_CY(out).int64 = *number;
        else
            V_I4(out) = static_cast<LONG>(*number);
    } else {
        V_VT(out) = VT_NULL;
    }
}

} // namespace tollvane::hostdata
