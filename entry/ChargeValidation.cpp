#include "entry/ChargeValidation.h"

#include "entry/AmountCheck.h"
#include "entry/BillingAddressCheck.h"
#include "entry/CardNumberValidation.h"
#include "entry/FieldMessages.h"
#include "entry/TaxCheck.h"

#include <string>

namespace tollvane {

namespace {

constexpr std::size_t kAuthorisationLength = 6;
constexpr std::size_t kShortestCardCode = 3;

} // namespace

ChargeValidation::ChargeValidation(const Desktop& desktop, ChargeInfoControls& controls,
                                   ChargeComponent& charge, AppProperties& settings)
    : desktop_(desktop), controls_(controls), charge_(charge), settings_(settings) {}

bool ChargeValidation::check() {
    return checkHolder() && checkCard() && checkExpiry() &&
           checkAmount(desktop_, controls_, charge_) && checkTax() &&
           BillingAddressCheck(desktop_, controls_, charge_, settings_).check() &&
           checkVoiceAuthorisation() && checkCardCode() && checkRequiredOrderData();
}

bool ChargeValidation::checkHolder() {
    const std::string name = controls_.txtCardName.text();
    if (name.empty()) {
        return refuse(desktop_.messageBoxes, controls_.txtCardName, kInvalidField,
                      "The card holder's name is invalid.", "Correct the card number to continue.");
    }
    const std::size_t lastBlank = name.rfind(' ');
    if (lastBlank == std::string::npos) {
        charge_.SetFirstName(name);
    } else {
        charge_.SetLastName(name.substr(lastBlank + 1));
        charge_.SetFirstName(name.substr(0, lastBlank));
    }
    return true;
}

bool ChargeValidation::checkCard() {
    const SecretText track = controls_.txtMagStripe.secretText();
    if (!track.empty()) {
        charge_.SetTrack1(track);
        return true;
    }
    const SecretText pan = controls_.txtCardNumber.secretText();
    if (!ValidateCardNumber(desktop_, pan)) {
        return refuse(desktop_.messageBoxes, controls_.txtCardNumber, kInvalidField,
                      "The credit card number is invalid.", "Correct the card number to continue.");
    }
    charge_.SetCardNumber(pan);
    return checkRequiredCardCode();
}

bool ChargeValidation::checkRequiredCardCode() {
    if (settings_.CardCodeRequired() && controls_.txtCardCode.secretText().empty()) {
        return refuse(desktop_.messageBoxes, controls_.txtCardCode, kRequiredFieldMissing,
                      "The card code field is required to submit this transaction.",
                      "Enter the card code for this credit card to continue.");
    }
    return true;
}

bool ChargeValidation::checkExpiry() {
    const int month = controls_.cboExpMonth.itemData(controls_.cboExpMonth.listIndex());
    const int year = controls_.cboExpYear.itemData(controls_.cboExpYear.listIndex());
    const DateTime firstDay{.year = year, .month = month, .day = 1};
    if (monthsBetween(desktop_.clock.now(), firstDay) < 0) {
        return refuse(desktop_.messageBoxes, controls_.cboExpMonth, kInvalidField,
                      "The expiration date is invalid.",
                      "If the expiration date is correct this card is exprired. "
                      "If not, correct the expiration date to continue.");
    }
    charge_.SetExpirationDate(std::to_string(month) + "-" + std::to_string(year));
    return true;
}

bool ChargeValidation::checkTax() {
    return TaxCheck(desktop_, controls_, charge_).check();
}

bool ChargeValidation::checkVoiceAuthorisation() {
    if (controls_.chkVoiceAuth.checked() &&
        controls_.txtAuthNum.text().size() != kAuthorisationLength) {
        return refuse(desktop_.messageBoxes, controls_.txtAuthNum, kInvalidField,
                      "The authorization number is invalid.",
                      "Enter a valid authorization number to continue.");
    }
    return true;
}

bool ChargeValidation::checkCardCode() {
    if (!controls_.txtCardCode.enabled()) {
        charge_.TransactionField(gatewayfield::cardCode).setValue(std::string());
        return true;
    }
    const SecretText code = controls_.txtCardCode.secretText();
    if (code.empty()) {
        if (confirmed(desktop_.messageBoxes, "Card Security Code Not Entered",
                      "The card code has not been entered. Entering a card code may favorably "
                      "affect the rate charged for this transaction.\r\n\r\n"
                      "Do you want to return to the main form and enter the card code now?")) {
            controls_.txtCardCode.setFocus();
            return false;
        }
        return true;
    }
    if (code.size() < kShortestCardCode) {
        return refuse(desktop_.messageBoxes, controls_.txtCardCode, kRequiredFieldMissing,
                      "The card code is invalid.",
                      "The card code is 3 or 4 digits long and usually found on the back credit "
                      "card.");
    }
    charge_.TransactionField(gatewayfield::cardCode).setValue(code);
    return true;
}

bool ChargeValidation::checkRequiredOrderData() {
    struct Rule {
        bool required;
        TextBox& box;
        const char* problem;
        const char* remedy;
    };
    const Rule rules[] = {
        {settings_.DescriptionRequired(), controls_.txtDescription,
         "The description field is required to submit this transaction.",
         "Enter a description for this charge to continue."},
        {settings_.InvoiceNumberRequired(), controls_.txtInvoiceNumber,
         "The invoice number field is required to submit this transaction.",
         "Enter an invoice number for this charge to continue."},
        {settings_.PONumberRequired(), controls_.txtPONumber,
         "The PO number field is required to submit this transaction.",
         "Enter an PO number for this charge to continue."},
    };
    for (const Rule& rule : rules) {
        if (rule.required && rule.box.text().empty()) {
            return refuse(desktop_.messageBoxes, rule.box, kRequiredFieldMissing, rule.problem,
                          rule.remedy);
        }
    }
    return true;
}

} // namespace tollvane
