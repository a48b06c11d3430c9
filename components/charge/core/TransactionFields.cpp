#include "components/charge/core/TransactionFields.h"

#include "components/charge/core/CardDataMask.h"
#include "components/charge/core/Failure.h"
#include "components/charge/core/GatewayMoney.h"

#include <algorithm>
#include <iterator>

namespace tollvane::charge {

namespace {

constexpr FieldDefinition definitions[] = {
    {Field::FirstName, "x_first_name", "first name", 50},
    {Field::LastName, "x_last_name", "last name", 50},
    {Field::CardNumber, "x_card_num", "card number", 19},
    {Field::CardCode, "x_card_code", "card code", 4},
    {Field::ExpirationDate, "x_exp_date", "expiration date", 10},
    {Field::Amount, "x_amount", "amount", 15},
    {Field::Tax, "x_tax", "tax", 15},
    {Field::TaxExempt, "x_tax_exempt", "tax exemption", 5},
    {Field::Address, "x_address", "street address", 60},
    {Field::City, "x_city", "city", 40},
    {Field::State, "x_state", "state", 40},
    {Field::Zip, "x_zip", "zip code", 20},
    {Field::Email, "x_email", "e-mail address", 255},
    {Field::Description, "x_description", "description", 255},
    {Field::InvoiceNumber, "x_invoice_num", "invoice number", 20},
    {Field::PurchaseOrder, "x_po_num", "PO number", 25},
    {Field::AuthorizationCode, "x_auth_code", "authorization number", 6},
    {Field::TransactionId, "x_trans_id", "transaction id", 20},
    {Field::TrackOne, "x_track1", "swiped card", 200},
};

char lower(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

bool sameName(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return lower(a) == lower(b); });
}

std::size_t indexOf(Field field) {
    return static_cast<std::size_t>(field);
}

} // namespace

std::span<const FieldDefinition> fieldDefinitions() noexcept {
    return definitions;
}

const FieldDefinition& definitionOf(Field field) noexcept {
    return definitions[indexOf(field)];
}

const FieldDefinition& fieldByName(std::string_view name) {
    for (const FieldDefinition& each : definitions) {
        if (sameName(each.name, name))
            return each;
    }
    throw failure(failurenumber::unknownField, "Fields",
                  "The gateway has no field named \"" + withoutCardNumbers(name) + "\".");
}

TransactionFields::TransactionFields() : values_(std::size(definitions)) {}

std::string_view TransactionFields::get(Field field) const {
    return values_[indexOf(field)].view();
}

void TransactionFields::set(Field field, std::string_view value) {
    values_[indexOf(field)] = SecretText(value);
}

void TransactionFields::clear() noexcept {
    for (SecretText& each : values_)
        each.clear();
}

void TransactionFields::clear(Field field) noexcept {
    values_[indexOf(field)].clear();
}

Money TransactionFields::money(Field field) const {
    return moneyFromGatewayText(get(field));
}

void TransactionFields::setMoney(Field field, Money amount) {
    set(field, gatewayText(amount));
}

bool TransactionFields::flag(Field field) const {
    return sameName(get(field), "TRUE");
}

void TransactionFields::setFlag(Field field, bool value) {
    set(field, value ? "TRUE" : "FALSE");
}

const FieldDefinition* TransactionFields::firstTooLong() const noexcept {
    for (const FieldDefinition& each : definitions) {
        if (values_[indexOf(each.field)].size() > static_cast<std::size_t>(each.maximumLength))
            return &each;
    }
    return nullptr;
}

} // namespace tollvane::charge
