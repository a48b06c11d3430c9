#pragma once

#include "entry/ChargeInfoControls.h"
#include "gateway/ChargeComponent.h"
#include "platform/Desktop.h"
#include "settings/AppProperties.h"

namespace tollvane {

/// The checks of a charge, in their order. Each hands its values over once it has passed.
class ChargeValidation {
public:
    /// All arguments outlive the object.
    ChargeValidation(const Desktop& desktop, ChargeInfoControls& controls, ChargeComponent& charge,
                     AppProperties& settings);

    /// False after the first failed check, which has been reported.
    bool check();

private:
    bool checkHolder();
    bool checkCard();
    bool checkRequiredCardCode();
    bool checkExpiry();
    bool checkTax();
    bool checkVoiceAuthorisation();
    bool checkCardCode();
    bool checkRequiredOrderData();

    Desktop desktop_;
    ChargeInfoControls& controls_;
    ChargeComponent& charge_;
    AppProperties& settings_;
};

} // namespace tollvane
