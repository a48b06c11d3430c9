#include "settings/AppProperties.h"

#include "settings/SettingsTable.h"
#include "settings/cRegistry.h"

namespace tollvane {

using namespace settingstable;

namespace {

template <class Value>
std::string keyOf(const Setting<Value>& setting) {
    return std::string(kBaseKey).append(setting.subKey);
}

std::string stored(const Desktop& desktop, const TextSetting& setting) {
    return cRegistry(desktop).GetStringValue(rootkey::localMachine, keyOf(setting),
                                             std::string(setting.valueName),
                                             std::string(setting.fallback));
}

std::int32_t stored(const Desktop& desktop, const NumberSetting& setting) {
    return cRegistry(desktop).GetNumericValue(rootkey::localMachine, keyOf(setting),
                                              std::string(setting.valueName), setting.fallback);
}

bool stored(const Desktop& desktop, const Switch& setting) {
    return cRegistry(desktop).GetBooleanValue(rootkey::localMachine, keyOf(setting),
                                              std::string(setting.valueName), setting.fallback);
}

// Whether the value itself could be written is not looked at: only an error has a description.
void save(const Desktop& desktop, const TextSetting& setting, const std::string& value) {
    cRegistry(desktop).SaveStringValue(rootkey::localMachine, keyOf(setting),
                                       std::string(setting.valueName), value);
}

void save(const Desktop& desktop, const NumberSetting& setting, std::int32_t value) {
    cRegistry(desktop).SaveNumericValue(rootkey::localMachine, keyOf(setting),
                                        std::string(setting.valueName), value);
}

void save(const Desktop& desktop, const Switch& setting, bool value) {
    cRegistry(desktop).SaveBooleanValue(rootkey::localMachine, keyOf(setting),
                                        std::string(setting.valueName), value);
}

void report(MessageBoxes& messageBoxes, std::string_view sentence, const Error& error) noexcept {
    try {
        messageBoxes.show({.text = failureText(sentence, error), .title = error.source()});
    } catch (...) {
        // The caller learns nothing of a failed save, and no more of a box that cannot be shown.
    }
}

template <class Kind, class Value>
void store(const Desktop& desktop, const Setting<Kind>& setting, const Value& value) {
    try {
        save(desktop, setting, value);
    } catch (...) {
        report(desktop.messageBoxes, setting.failure, currentError());
    }
}

} // namespace

std::string AppProperties::CompanyName() const {
    return stored(desktop_, companyName);
}

void AppProperties::SetCompanyName(const std::string& vName) {
    store(desktop_, companyName, vName);
}

std::string AppProperties::CompanyStreet() const {
    return stored(desktop_, companyStreet);
}

void AppProperties::SetCompanyStreet(const std::string& vStreet) {
    store(desktop_, companyStreet, vStreet);
}

std::string AppProperties::CompanyAdditionalAddress() const {
    return stored(desktop_, companyAdditionalAddress);
}

void AppProperties::SetCompanyAdditionalAddress(const std::string& vAddAddress) {
    store(desktop_, companyAdditionalAddress, vAddAddress);
}

std::string AppProperties::CompanyCity() const {
    return stored(desktop_, companyCity);
}

void AppProperties::SetCompanyCity(const std::string& vCity) {
    store(desktop_, companyCity, vCity);
}

std::string AppProperties::CompanyState() const {
    return stored(desktop_, companyState);
}

void AppProperties::SetCompanyState(const std::string& vState) {
    store(desktop_, companyState, vState);
}

std::string AppProperties::CompanyZip() const {
    return stored(desktop_, companyZip);
}

void AppProperties::SetCompanyZip(const std::string& vZip) {
    store(desktop_, companyZip, vZip);
}

std::string AppProperties::CompanyPhone() const {
    return stored(desktop_, companyPhone);
}

void AppProperties::SetCompanyPhone(const std::string& vPhone) {
    store(desktop_, companyPhone, vPhone);
}

std::int32_t AppProperties::CompanyLocation() const {
    return stored(desktop_, companyLocation);
}

void AppProperties::SetCompanyLocation(std::int32_t vLocation) {
    store(desktop_, companyLocation, vLocation);
}

std::int32_t AppProperties::FormatType() const {
    return stored(desktop_, formatType);
}

void AppProperties::SetFormatType(std::int32_t vFormatType) {
    store(desktop_, formatType, vFormatType);
}

bool AppProperties::DefaultInvoiceNumber() const {
    return stored(desktop_, defaultInvoiceNumber);
}

void AppProperties::SetDefaultInvoiceNumber(bool vUseDefaultNumbers) {
    store(desktop_, defaultInvoiceNumber, vUseDefaultNumbers);
}

bool AppProperties::InvoiceNumberForPONumber() const {
    return stored(desktop_, invoiceNumberForPONumber);
}

void AppProperties::SetInvoiceNumberForPONumber(bool vInvoiceNumberForPONumber) {
    store(desktop_, invoiceNumberForPONumber, vInvoiceNumberForPONumber);
}

bool AppProperties::ShopAddressForBillToAddress() const {
    return stored(desktop_, shopAddressForBillToAddress);
}

void AppProperties::SetShopAddressForBillToAddress(bool vShopAddressForBillToAddress) {
    store(desktop_, shopAddressForBillToAddress, vShopAddressForBillToAddress);
}

bool AppProperties::InvoiceNumberRequired() const {
    return stored(desktop_, invoiceNumberRequired);
}

void AppProperties::SetInvoiceNumberRequired(bool vRequired) {
    store(desktop_, invoiceNumberRequired, vRequired);
}

bool AppProperties::PONumberRequired() const {
    return stored(desktop_, poNumberRequired);
}

void AppProperties::SetPONumberRequired(bool vRequired) {
    store(desktop_, poNumberRequired, vRequired);
}

bool AppProperties::CardCodeRequired() const {
    return stored(desktop_, cardCodeRequired);
}

void AppProperties::SetCardCodeRequired(bool vRequired) {
    store(desktop_, cardCodeRequired, vRequired);
}

bool AppProperties::BillToAddressRequired() const {
    return stored(desktop_, billToAddressRequired);
}

void AppProperties::SetBillToAddressRequired(bool vRequired) {
    store(desktop_, billToAddressRequired, vRequired);
}

bool AppProperties::DescriptionRequired() const {
    return stored(desktop_, descriptionRequired);
}

void AppProperties::SetDescriptionRequired(bool vRequired) {
    store(desktop_, descriptionRequired, vRequired);
}

bool AppProperties::ShowRefundVoidWarning() const {
    return stored(desktop_, showRefundVoidWarning);
}

void AppProperties::SetShowRefundVoidWarning(bool vRequired) {
    store(desktop_, showRefundVoidWarning, vRequired);
}

WindowPosition AppProperties::GetWindowPosition() const {
    WindowPosition position{stored(desktop_, windowX), stored(desktop_, windowY)};
    if (position.X > desktop_.screen.widthInTwips()) {
        position.X = 0;
    }
    if (position.Y > desktop_.screen.heightInTwips()) {
        position.Y = 0;
    }
    return position;
}

void AppProperties::SaveWindowPosition(std::int32_t X, std::int32_t Y) {
    try {
        save(desktop_, windowX, X);
        save(desktop_, windowY, Y);
    } catch (...) {
        // A position that cannot be remembered is no reason to keep the operator from leaving.
    }
}

} // namespace tollvane
