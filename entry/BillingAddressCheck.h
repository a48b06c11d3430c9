#pragma once

#include "entry/ChargeInfoControls.h"
#include "gateway/ChargeComponent.h"
#include "platform/Desktop.h"
#include "settings/AppProperties.h"

namespace tollvane {

/// Hands the billing address of a charge over and sees to it that it is complete, as far as the
/// settings ask for that.
class BillingAddressCheck {
public:
    BillingAddressCheck(const Desktop& desktop, ChargeInfoControls& controls,
                        ChargeComponent& charge, AppProperties& settings);

    bool check();

private:
    /// The first field that is empty at the component, in the order street, state, city, zip; null
    /// when the address is complete.
    Control* firstEmptyField() const;
    bool operatorReturns() const;
    void useShopAddress();

    Desktop desktop_;
    ChargeInfoControls& controls_;
    ChargeComponent& charge_;
    AppProperties& settings_;
};

} // namespace tollvane
