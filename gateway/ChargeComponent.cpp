#include "gateway/ChargeComponent.h"

#include "platform/LocaleStyle.h"

#include <utility>

namespace tollvane {

namespace {

/// An amount is taken as it is; only a text asks the locale how to be read.
Money moneyOf(const Variant& answer, Locale& locale) {
    const auto* amount = std::get_if<Money>(&answer);
    return amount != nullptr ? *amount : asMoney(answer, moneyStyle(locale));
}

} // namespace

void TransactionField::setValue(Variant value) {
    field_->put("cTransactionFields_Value", std::move(value));
}

std::string TransactionField::value() const {
    return asText(field_->get("cTransactionFields_Value"));
}

int TransactionField::maximumLength() const {
    return asInt(field_->get("cTransactionFields_MaximumLength"));
}

ChargeComponent::ChargeComponent(ObjectRef component, Locale& locale)
    : component_(std::move(component)), locale_(&locale) {}

void ChargeComponent::ClearFields() {
    component_->call("ClearFields");
}

tollvane::TransactionField ChargeComponent::TransactionField(std::string_view gatewayField) const {
    return tollvane::TransactionField(
        asObject(component_->call("TransactionField", {{std::string(gatewayField)}})));
}

bool ChargeComponent::AuthorizeAndCapture() {
    return asBool(component_->call("AuthorizeAndCapture"));
}

bool ChargeComponent::CaptureVoiceAuth(const std::string& authorisationCode) {
    return asBool(component_->call("CaptureVoiceAuth", {{authorisationCode}}));
}

bool ChargeComponent::Credit(const std::string& transactionId) {
    return asBool(component_->call("Credit", {{transactionId}}));
}

bool ChargeComponent::Void(const std::string& transactionId) {
    return asBool(component_->call("Void", {{transactionId}}));
}

void ChargeComponent::ConfigureGateway() {
    component_->call("ConfigureGateway");
}
void ChargeComponent::ConfigureSettings() {
    component_->call("ConfigureSettings");
}

void ChargeComponent::LogLoggedInUser(const std::string& displayName) {
    component_->call("LogLoggedInUser", {{displayName, true}});
}

void ChargeComponent::Free() {
    component_->call("Free");
}

std::string ChargeComponent::text(std::string_view property) const {
    return asText(component_->get(property));
}

Money ChargeComponent::Amount() const {
    return moneyOf(component_->get("Amount"), *locale_);
}
void ChargeComponent::SetAmount(Money amount) {
    component_->put("Amount", amount);
}

SecretText ChargeComponent::CardNumber() const {
    Variant answer = component_->get("CardNumber");
    SecretText pan = asSecret(answer);
    if (auto* text = std::get_if<std::string>(&answer)) {
        wipe(*text);
    }
    return pan;
}
void ChargeComponent::SetCardNumber(const SecretText& pan) {
    component_->put("CardNumber", pan);
}
void ChargeComponent::SetTrack1(const SecretText& track) {
    component_->put("Track1", track);
}

std::string ChargeComponent::FirstName() const {
    return text("FirstName");
}
void ChargeComponent::SetFirstName(const std::string& name) {
    component_->put("FirstName", name);
}
std::string ChargeComponent::LastName() const {
    return text("LastName");
}
void ChargeComponent::SetLastName(const std::string& name) {
    component_->put("LastName", name);
}

std::string ChargeComponent::ExpirationDate() const {
    return text("ExpirationDate");
}
void ChargeComponent::SetExpirationDate(const std::string& monthAndYear) {
    component_->put("ExpirationDate", monthAndYear);
}
void ChargeComponent::SetExpirationDate(const DateTime& firstOfMonth) {
    component_->put("ExpirationDate", firstOfMonth);
}

Money ChargeComponent::Tax() const {
    return moneyOf(component_->get("Tax"), *locale_);
}
void ChargeComponent::SetTax(const std::string& tax) {
    component_->put("Tax", tax);
}
void ChargeComponent::SetTaxExempt(bool exempt) {
    component_->put("TaxExempt", exempt);
}

std::string ChargeComponent::StreetAddress() const {
    return text("StreetAddress");
}
void ChargeComponent::SetStreetAddress(const std::string& street) {
    component_->put("StreetAddress", street);
}
std::string ChargeComponent::City() const {
    return text("City");
}
void ChargeComponent::SetCity(const std::string& city) {
    component_->put("City", city);
}
std::string ChargeComponent::State() const {
    return text("State");
}
void ChargeComponent::SetState(const std::string& state) {
    component_->put("State", state);
}
std::string ChargeComponent::ZipCode() const {
    return text("ZipCode");
}
void ChargeComponent::SetZipCode(const std::string& zip) {
    component_->put("ZipCode", zip);
}
std::string ChargeComponent::InvoiceNumber() const {
    return text("InvoiceNumber");
}
void ChargeComponent::SetInvoiceNumber(const std::string& number) {
    component_->put("InvoiceNumber", number);
}
void ChargeComponent::SetDescription(const std::string& description) {
    component_->put("Description", description);
}
void ChargeComponent::SetCustomerEmail(const std::string& email) {
    component_->put("CustomerEmail", email);
}

std::int32_t ChargeComponent::ResponseCode() const {
    return asInt(component_->get("ResponseCode"));
}
std::int32_t ChargeComponent::ResponseReasonCode() const {
    return asInt(component_->get("ResponseReasonCode"));
}
std::int32_t ChargeComponent::ResponseSubCode() const {
    return asInt(component_->get("ResponseSubCode"));
}
std::string ChargeComponent::ResponseReasonText() const {
    return text("ResponseReasonText");
}
std::string ChargeComponent::ApprovalCode() const {
    return text("ApprovalCode");
}
std::string ChargeComponent::TransactionID() const {
    return text("TransactionID");
}

bool ChargeComponent::TestMode() const {
    return asBool(component_->get("TestMode"));
}
std::string ChargeComponent::LogFilePath() const {
    return text("LogFilePath");
}
std::string ChargeComponent::LogFileName() const {
    return text("LogFileName");
}
std::string ChargeComponent::Data_Path() const {
    return text("Data_Path");
}

} // namespace tollvane
