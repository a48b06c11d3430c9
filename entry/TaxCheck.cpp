#include "entry/TaxCheck.h"

#include "app/CommonRoutines.h"
#include "entry/FieldMessages.h"
#include "platform/LocaleStyle.h"
#include "platform/Text.h"

#include <cmath>

namespace tollvane {

namespace {
/// A truth value as a number: true is -1, all bits set.
constexpr int truth(bool value) {
    return value ? -1 : 0;
}
constexpr int kNoButton = 2;
} // namespace

TaxCheck::TaxCheck(const Desktop& desktop, ChargeInfoControls& controls, ChargeComponent& charge)
    : desktop_(desktop), controls_(controls), charge_(charge) {}

bool TaxCheck::check() {
    const MoneyStyle style = moneyStyle(desktop_.locale);
    const Money tax = moneyFromText(controls_.txtTaxAmount.text(), style);
    const Money amount = moneyFromText(controls_.txtAmount.text(), style);
    if (tax > amount) {
        return refuse(desktop_.messageBoxes, controls_.txtTaxAmount, kInvalidField,
                      "The tax amount is greater than the charged amount.",
                      "Enter a valid tax amount to continue.");
    }
    if (isQuestionable(tax, amount)) {
        return confirmQuestionable();
    }
    handOverTax();
    charge_.SetTaxExempt(controls_.chkTaxExempt.checked() && charge_.Tax().isZero());
    return true;
}

bool TaxCheck::isQuestionable(Money tax, Money amount) {
    // nearbyint rounds half to even in the default rounding mode.
    const int share = static_cast<int>(std::nearbyint(truth(tax > amount) * 0.1));
    return (share & truth(tax > Money() && amount > Money())) != 0;
}

bool TaxCheck::confirmQuestionable() {
    if (!confirmed(desktop_.messageBoxes, "Questionable Tax Amount",
                   "The entered tax amount of " + controls_.txtTaxAmount.text() +
                       " appears to be too much. Do you want to use this tax amount and continue.",
                   kNoButton)) {
        controls_.txtTaxAmount.setFocus();
        return false;
    }
    handOverTax();
    return true;
}

void TaxCheck::handOverTax() {
    charge_.SetTax(
        withoutPiece(controls_.txtTaxAmount.text(),
                     GetLocaleValue(desktop_.locale, localeitem::currencySymbol, kUserLocale)));
}

} // namespace tollvane
