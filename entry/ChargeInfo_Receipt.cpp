// The receipt of the last transaction, and what the operator is told when there is none.

#include "entry/ChargeInfo.h"
#include "output/Receipt.h"

#include <string>

namespace tollvane {

namespace {

/// Gives the form its ordinary mouse pointer back at the end of the block.
class PointerReset {
public:
    explicit PointerReset(Form& form) : form_(form) {}
    ~PointerReset() {
        try {
            form_.setMousePointer(MousePointer::standard);
        } catch (...) {
            // The next operation sets the pointer again.
        }
    }
    PointerReset(const PointerReset&) = delete;
    PointerReset& operator=(const PointerReset&) = delete;

private:
    Form& form_;
};

/// The operator knows already: from the printer's own message, or by having cancelled.
bool isKnownToOperator(const Error& error) {
    return error.number() == errornumber::printerError || error.number() == errornumber::cancelled;
}

Message receiptFailure(const Error& error) {
    return {.text = "There was an error printing the receipt.\r\n\r\nError = " +
                    std::to_string(error.number()) + ", " + error.description() + ".",
            .title = error.description(),
            .icon = MessageIcon::exclamation};
}

void reportReceiptFailure(MessageBoxes& messageBoxes, const Error& error) noexcept {
    try {
        if (!isKnownToOperator(error)) {
            messageBoxes.show(receiptFailure(error));
        }
    } catch (...) {
        // A box that cannot be shown leaves the operator with the form as it is.
    }
}

} // namespace

void ChargeInfo::Print_Receipt() noexcept {
    const PointerReset pointerReset(*form_);
    try {
        if (!transactionApproved_) {
            desktop_.messageBoxes.show(
                {.text = "This transaction has not been authorized.", .title = "Nothing to Print"});
            return;
        }
        form_->setMousePointer(MousePointer::hourglass);
        // A reference of its own: the form may be closed while a printer asks where to print to.
        const ChargeComponent charge = components_.charge();
        printReceipt(desktop_, charge, controls_.selectedTransactionType());
    } catch (...) {
        reportReceiptFailure(desktop_.messageBoxes, currentError());
    }
}

} // namespace tollvane
