#include "entry/AmountCheck.h"

#include "entry/FieldMessages.h"
#include "entry/NewEntry.h"
#include "platform/LocaleStyle.h"

namespace tollvane {

bool checkAmount(const Desktop& desktop, ChargeInfoControls& controls, ChargeComponent& charge) {
    const Money amount = moneyFromText(controls.txtAmount.text(), moneyStyle(desktop.locale));
    if (amount.isZero()) {
        return refuse(desktop.messageBoxes, controls.txtAmount, kInvalidField,
                      "The amount is " + zeroCurrency(desktop) + ".",
                      "Enter a valid amount to continue.");
    }
    charge.SetAmount(amount.absolute());
    return true;
}

} // namespace tollvane
