// The fields of a payment record.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace tollvane::hostdata {

// Nothing, a text (UTF-8), or a currency value or whole number: money is scaled by 10,000.
using FieldValue = std::variant<std::monostate, std::string, std::int64_t>;

enum class FieldType { text, money, wholeNumber };

struct FieldDefinition {
    const char* name;   // as clients write it; capital and small letters are the same
    const char* column; // in the table
    FieldType type;
    std::size_t longest; // characters of a text
    bool writable;       // false: filled by the store
};

constexpr std::array<FieldDefinition, 13> kPaymentFields{{
    {"Account", "account", FieldType::text, 40, true},
    {"Amount", "amount", FieldType::money, 0, true},
    {"Approval", "approval", FieldType::text, 50, true},
    {"Expire", "expire", FieldType::text, 10, true},
    {"PaidBy", "paid_by", FieldType::text, 50, true},
    {"SoldToLast", "sold_to_last", FieldType::text, 255, true},
    {"Street", "street", FieldType::text, 255, true},
    {"TransID", "trans_id", FieldType::text, 100, true},
    {"Zip", "zip", FieldType::text, 50, true},
    {"Id", "id", FieldType::wholeNumber, 0, false},
    {"Created", "created", FieldType::text, 0, false},
    {"Operator", "operator", FieldType::text, 0, false},
    {"Location", "location", FieldType::text, 0, false},
}};

// The values of one record, in the order of kPaymentFields.
using PaymentValues = std::array<FieldValue, kPaymentFields.size()>;

// The field's place in kPaymentFields; raises unknownField.
[[nodiscard]] std::size_t paymentField(std::string_view name);

// Raises readOnlyField or badFieldValue when the value may not be stored in the field. An account
// must come masked: more than four digits are refused, so that a full card number never gets in.
void checkFieldValue(const FieldDefinition& field, const FieldValue& value);

} // namespace tollvane::hostdata
