#pragma once

#include "entry/ChargeInfoControls.h"
#include "gateway/ChargeComponent.h"
#include "platform/Desktop.h"

namespace tollvane {

/// The check of a charge's tax against its amount, and the handing over of tax and exemption.
class TaxCheck {
public:
    TaxCheck(const Desktop& desktop, ChargeInfoControls& controls, ChargeComponent& charge);

    /// Raises 13 or 6 for a text that is no amount.
    bool check();

    /// Whether the operator is asked to confirm the tax. The arithmetic is the product's own and
    /// never asks: its tenth of a truth value rounds to zero for every tax and amount.
    static bool isQuestionable(Money tax, Money amount);

    /// Asks the operator. Yes hands over the tax and leaves the exemption alone; No moves the focus
    /// to the tax and answers false.
    bool confirmQuestionable();

private:
    void handOverTax();

    Desktop desktop_;
    ChargeInfoControls& controls_;
    ChargeComponent& charge_;
};

} // namespace tollvane
