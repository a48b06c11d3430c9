#include "tests/desktop/FakeCharge.h"

#include "platform/Money.h"
#include "tests/desktop/FakeLocale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace tollvane::test {

namespace {

struct FieldLength {
    const char* name;
    std::int32_t maximum;
};

constexpr FieldLength kFields[] = {
    {"x_first_name", 50},   {"x_last_name", 50},   {"x_card_num", 22}, {"x_card_code", 4},
    {"x_amount", 15},       {"x_zip", 20},         {"x_tax", 15},      {"x_auth_code", 6},
    {"x_trans_id", 20},     {"x_address", 60},     {"x_city", 40},     {"x_email", 255},
    {"x_description", 255}, {"x_invoice_num", 20}, {"x_po_num", 25}};

constexpr const char* kTexts[] = {"CardNumber",    "FirstName",   "LastName",      "ExpirationDate",
                                  "StreetAddress", "City",        "State",         "ZipCode",
                                  "InvoiceNumber", "Description", "CustomerEmail", "Track1"};

std::string plainText(const Variant& value) {
    if (const auto* secret = std::get_if<SecretText>(&value)) {
        return std::string(secret->view());
    }
    if (const auto* text = std::get_if<std::string>(&value)) {
        return *text;
    }
    return std::holds_alternative<std::monostate>(value) ? std::string() : variantText(value);
}

bool passesCheckDigit(std::string_view number) {
    int sum = 0;
    bool doubled = false;
    for (auto c = number.rbegin(); c != number.rend(); ++c) {
        if (*c < '0' || *c > '9') {
            return false;
        }
        const int digit = (*c - '0') * (doubled ? 2 : 1);
        sum += digit > 9 ? digit - 9 : digit;
        doubled = !doubled;
    }
    return !number.empty() && sum % 10 == 0;
}

} // namespace

ChargeAnswer declined(std::int32_t responseCode, std::int32_t reasonCode, std::string reasonText) {
    ChargeAnswer answer;
    answer.approved = false;
    answer.responseCode = responseCode;
    answer.reasonCode = reasonCode;
    answer.reasonText = std::move(reasonText);
    answer.approvalCode.clear();
    answer.transactionId.clear();
    return answer;
}

Variant ChargeOperation::property(const std::string& wanted) const {
    const auto found = properties.find(wanted);
    if (found == properties.end()) {
        ADD_FAILURE() << "the charge component has no property " << wanted;
        return {};
    }
    return found->second;
}

std::string ChargeOperation::text(const std::string& wanted) const {
    return plainText(property(wanted));
}

std::string ChargeOperation::field(const std::string& wanted) const {
    const auto found = fields.find(wanted);
    if (found == fields.end()) {
        ADD_FAILURE() << "the gateway has no field " << wanted;
        return {};
    }
    return found->second;
}

FakeCharge::FakeCharge(AutomationRecord& record, FakeLocale& locale)
    : record_(record), locale_(locale), object_(std::make_shared<FakeObject>("charge", record)) {
    addFields();
    addTransactionProperties();
    addResponse();
    addOperations();
    addHousekeeping();
    clearFields();
    cleared = 0;
}

void FakeCharge::addFields() {
    for (const FieldLength& row : kFields) {
        Field& field = fields_[row.name];
        field.maximumLength = row.maximum;
        auto object = std::make_shared<FakeObject>(std::string("field ") + row.name, record_);
        object->property(
            "cTransactionFields_Value", [&field] { return Variant(field.value); },
            [&field](const Variant& value) { field.value = plainText(value); });
        object->readOnly("cTransactionFields_MaximumLength",
                         [&field] { return Variant(field.maximumLength); });
        field.object = object;
    }
    object_->method("TransactionField", [this](std::vector<Argument>& arguments) -> Variant {
        const auto found = fields_.find(plainText(arguments.at(0).value));
        if (found == fields_.end()) {
            throw Error(errornumber::invalidProcedureCall, "charge", "There is no such field.");
        }
        return found->second.object;
    });
}

void FakeCharge::addTransactionProperties() {
    for (const char* name : kTexts) {
        object_->property(name, std::string());
    }
    for (const std::string name : {"Amount", "Tax"}) {
        object_->property(name, Money());
        // Given as money or as text, kept as money.
        object_->property(name, nullptr, [this, name](const Variant& v) { setMoney(name, v); });
    }
    object_->property("TaxExempt", false);
}

void FakeCharge::setMoney(const std::string& property, const Variant& value) {
    const auto text = [this](std::uint32_t item) {
        char buffer[80] = {};
        locale_.info(locale_.userDefault(), item, buffer, sizeof buffer);
        return std::string(buffer);
    };
    MoneyStyle style;
    style.currencySymbol = text(localeitem::currency);
    style.decimalSeparator = text(localeitem::decimal);
    style.groupSeparator = text(localeitem::thousand);
    style.moneyDecimal = text(localeitem::moneyDecimal);
    style.moneyGroup = text(localeitem::moneyThousand);
    const auto* money = std::get_if<Money>(&value);
    object_->setValue(property, money != nullptr ? *money : moneyFromText(plainText(value), style));
}

void FakeCharge::addResponse() {
    object_->readOnly("ResponseCode", [this] { return Variant(response_.responseCode); });
    object_->readOnly("ResponseReasonCode", [this] { return Variant(response_.reasonCode); });
    object_->readOnly("ResponseSubCode", [this] { return Variant(response_.subCode); });
    object_->readOnly("ResponseReasonText", [this] { return Variant(response_.reasonText); });
    object_->readOnly("ApprovalCode", [this] { return Variant(response_.approvalCode); });
    object_->readOnly("TransactionID", [this] { return Variant(response_.transactionId); });
}

void FakeCharge::addOperations() {
    operation("AuthorizeAndCapture", false);
    operation("CaptureVoiceAuth", true);
    operation("Credit", true);
    operation("Void", true);
    object_->method("ClearFields", [this](std::vector<Argument>&) -> Variant {
        clearFields();
        return {};
    });
}

void FakeCharge::addHousekeeping() {
    object_->readOnly("TestMode", [this] { return Variant(testMode); });
    object_->readOnly("LogFilePath", [this] { return Variant(logFilePath); });
    object_->readOnly("LogFileName", [this] { return Variant(logFileName); });
    object_->readOnly("Data_Path", [this] { return Variant(dataPath); });
    object_->method("ConfigureGateway", [this](std::vector<Argument>&) -> Variant {
        ++gatewayConfigured;
        if (onConfigureGateway) {
            onConfigureGateway();
        }
        return {};
    });
    object_->method("ConfigureSettings", [this](std::vector<Argument>&) -> Variant {
        ++settingsConfigured;
        return {};
    });
    object_->method("LogLoggedInUser", [this](std::vector<Argument>& arguments) -> Variant {
        loggedUsers.push_back(plainText(arguments.at(0).value));
        return {};
    });
    object_->method("Free", [this](std::vector<Argument>&) -> Variant {
        ++freed;
        return {};
    });
}

void FakeCharge::clearFields() {
    ++cleared;
    for (auto& [name, field] : fields_) {
        field.value.clear();
    }
    for (const char* name : kTexts) {
        object_->setValue(name, std::string());
    }
    object_->setValue("Amount", Money());
    object_->setValue("Tax", Money());
    object_->setValue("TaxExempt", false);
    response_ = {false, 0, 0, 0, {}, {}, {}};
}

void FakeCharge::operation(const std::string& name, bool takesArgument) {
    object_->method(name, [this, name, takesArgument](std::vector<Argument>& arguments) -> Variant {
        if (arguments.size() != (takesArgument ? 1U : 0U)) {
            throw Error(450, "charge", "Wrong number of arguments or invalid property assignment");
        }
        return run(name, arguments);
    });
}

Variant FakeCharge::run(const std::string& name, const std::vector<Argument>& arguments) {
    ChargeOperation operation;
    operation.name = name;
    operation.argument = arguments.empty() ? std::string() : plainText(arguments[0].value);
    for (const char* property : kTexts) {
        operation.properties[property] = object_->value(property);
    }
    for (const char* property : {"Amount", "Tax", "TaxExempt"}) {
        operation.properties[property] = object_->value(property);
    }
    for (const auto& [field, held] : fields_) {
        operation.fields[field] = held.value;
    }
    const std::size_t place = operations_.size();
    operations_.push_back(operation);
    if (duringOperation) {
        duringOperation(operation);
    }
    if (operationError_) {
        const Error error = *std::exchange(operationError_, std::nullopt);
        throw error;
    }
    response_ = answers_.empty() ? ChargeAnswer() : answers_.front();
    if (!answers_.empty()) {
        answers_.erase(answers_.begin());
    }
    operations_[place].approved = response_.approved;
    return response_.approved;
}

std::string FakeCharge::field(const std::string& name) const {
    const auto found = fields_.find(name);
    return found == fields_.end() ? std::string() : found->second.value;
}

void FakeCharge::setMaximumLength(const std::string& field, std::int32_t length) {
    fields_.at(field).maximumLength = length;
}

FakeChecker::FakeChecker(AutomationRecord& record)
    : accepts(passesCheckDigit), object_(std::make_shared<FakeObject>("checker", record)) {
    object_->method("CheckCardNumber", [this](std::vector<Argument>& arguments) -> Variant {
        checked.emplace_back(plainText(arguments.at(0).value));
        if (error) {
            throw Error(*error);
        }
        return accepts(checked.back().view());
    });
}

} // namespace tollvane::test
