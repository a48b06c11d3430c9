// The receipt of the last transaction: what the operator is told when there is none or it fails.

#include "entry/ChargeInfo.h"

namespace tollvane {

void ChargeInfo::Print_Receipt() noexcept {
    guard("There was an error printing the receipt.", [&] {
        if (!transactionApproved_) {
            desktop_.messageBoxes.show(
                {.text = "This transaction has not been authorized.", .title = "Nothing to Print"});
        }
    });
}

} // namespace tollvane
