// The current transaction: the values of all gateway fields. The component's named properties read
// and write the same values.
#pragma once

#include "platform/Money.h"
#include "platform/SecretText.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tollvane::charge {

enum class Field : std::size_t {
    FirstName,
    LastName,
    CardNumber,
    CardCode,
    ExpirationDate,
    Amount,
    Tax,
    TaxExempt,
    Address,
    City,
    State,
    Zip,
    Email,
    Description,
    InvoiceNumber,
    PurchaseOrder,
    AuthorizationCode,
    TransactionId,
    TrackOne,
};

struct FieldDefinition {
    Field field;
    const char* name;  // as the gateway calls it
    const char* label; // as a person at the counter calls it
    int maximumLength; // in characters
};

// In the order of Field.
std::span<const FieldDefinition> fieldDefinitions() noexcept;
const FieldDefinition& definitionOf(Field field) noexcept;

// Field names are compared without regard to case. Raises failurenumber::unknownField.
const FieldDefinition& fieldByName(std::string_view name);

// Every value is treated as card data and wiped when it is replaced, cleared or destroyed.
class TransactionFields {
public:
    TransactionFields();

    std::string_view get(Field field) const;
    void set(Field field, std::string_view value);
    void clear() noexcept;
    void clear(Field field) noexcept;

    // Raises 13 or 6 when the field holds no amount.
    Money money(Field field) const;
    void setMoney(Field field, Money amount);
    // "TRUE" or "FALSE" in the field; anything but "TRUE" reads as false.
    bool flag(Field field) const;
    void setFlag(Field field, bool value);

    // The first field whose value is longer than the gateway accepts, null when there is none.
    const FieldDefinition* firstTooLong() const noexcept;

private:
    std::vector<SecretText> values_;
};

} // namespace tollvane::charge
