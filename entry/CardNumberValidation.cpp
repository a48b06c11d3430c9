#include "entry/CardNumberValidation.h"

#include "gateway/CardNumberChecker.h"
#include "platform/Error.h"

namespace tollvane {

bool ValidateCardNumber(const Desktop& desktop, const SecretText& pan) {
    if (pan.empty()) {
        return false;
    }
    try {
        CardNumberChecker checker(desktop.automation);
        if (checker.CheckCardNumber(pan)) {
            return true;
        }
        desktop.messageBoxes.show({.text = "The credit card number contains errors.\r\n\r\n"
                                           "Correct the card number to continue.",
                                   .title = "Invalid Card Number"});
    } catch (...) {
        const Error error = currentError();
        desktop.messageBoxes.show(
            {.text = "There was an error validating the credit card number.\r\n\r\nError: " +
                     std::to_string(error.number()) + " ," + error.description(),
             .title = error.source() + ":ValidateCardNumber"});
    }
    return false;
}

} // namespace tollvane
