#include "entry/Validation.h"

#include "entry/AmountCheck.h"
#include "entry/ChargeValidation.h"
#include "entry/FieldMessages.h"

#include <algorithm>
#include <string>

namespace tollvane {

namespace {

constexpr std::size_t kLastDigits = 4;

bool endsInFourDigits(std::string_view pan) {
    return pan.size() >= kLastDigits &&
           std::ranges::all_of(pan.substr(pan.size() - kLastDigits),
                               [](char character) { return character >= '0' && character <= '9'; });
}

} // namespace

Validation::Validation(const Desktop& desktop, ChargeInfoControls& controls,
                       ChargeComponent& charge)
    : desktop_(desktop), controls_(controls), charge_(charge), settings_(desktop) {}

bool Validation::ValidateTransaction() {
    charge_.ClearFields();
    bool passed = true;
    switch (controls_.selectedTransactionType()) {
    case transtype::charge:
        passed = ChargeValidation(desktop_, controls_, charge_, settings_).check();
        break;
    case transtype::refund: passed = checkRefund(); break;
    case transtype::voiding: passed = checkVoid(); break;
    default: break; // an unknown type has no checks of its own
    }
    if (passed) {
        handOverOrderData();
    }
    return passed;
}

bool Validation::checkRefund() {
    const SecretText pan = controls_.txtCardNumber.secretText();
    if (!endsInFourDigits(pan.view())) {
        return refuse(desktop_.messageBoxes, controls_.txtCardNumber, kInvalidField,
                      "The credit card number is invalid.",
                      "At least the last four digits of the card number are required. "
                      "Correct the card number to continue.");
    }
    charge_.SetCardNumber(pan);
    return checkVoid();
}

bool Validation::checkVoid() {
    return checkAmount(desktop_, controls_, charge_) && checkOriginalTransaction();
}

bool Validation::checkOriginalTransaction() {
    if (controls_.txtTransactionNumber.text().empty()) {
        return refuse(desktop_.messageBoxes, controls_.txtTransactionNumber, kInvalidField,
                      "Refunds/Credits require the transaction id of the original authorization.",
                      "Enter the original authorization id to continue.");
    }
    return true;
}

void Validation::handOverOrderData() {
    charge_.SetInvoiceNumber(controls_.txtInvoiceNumber.text());
    const std::string purchaseOrder = controls_.txtPONumber.text();
    const bool useInvoiceNumber = settings_.InvoiceNumberForPONumber() && purchaseOrder.empty();
    charge_.TransactionField(gatewayfield::purchaseOrderNumber)
        .setValue(useInvoiceNumber ? charge_.InvoiceNumber() : purchaseOrder);
    charge_.SetDescription(controls_.txtDescription.text());
    charge_.SetCustomerEmail(controls_.txtEMail.text());
}

} // namespace tollvane
