// Between the values of a record's fields and automation values.
#pragma once

#include "components/hostdata/payments/PaymentFields.h"

#include <windows.h>

#include <oleauto.h>

namespace tollvane::hostdata {

// Nothing, Null and a missing value clear the field; everything else is converted to the field's
// type by the platform's rules, in the user's locale. Raises run-time error 13 or 6 when it does
// not convert.
[[nodiscard]] FieldValue fieldValue(const FieldDefinition& field, const VARIANT& value);

// A field that was not set gives Null.
void giveField(VARIANT* out, const FieldDefinition& field, const FieldValue& value);

} // namespace tollvane::hostdata
