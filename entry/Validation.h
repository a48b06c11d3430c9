#pragma once

#include "entry/ChargeInfoControls.h"
#include "gateway/ChargeComponent.h"
#include "platform/Desktop.h"
#include "settings/AppProperties.h"

#include <string_view>

namespace tollvane {

/// The gate between the operator's entry and the charge component: checks the fields in a fixed
/// order, tells what is wrong, and hands the checked values over. Built for one press of submit.
class Validation {
public:
    /// All arguments outlive the object.
    Validation(const Desktop& desktop, ChargeInfoControls& controls, ChargeComponent& charge);

    /// True when the charge component holds an entry that may be submitted. On the first failed
    /// check: a message, the focus on the field to correct, and false. Raises what no check covers
    /// (a money text that does not convert, no expiry chosen, a failing component).
    bool ValidateTransaction();

private:
    bool checkRefund();
    bool checkVoid();
    bool checkOriginalTransaction();
    void handOverOrderData();

    Desktop desktop_;
    ChargeInfoControls& controls_;
    ChargeComponent& charge_;
    AppProperties settings_;
};

} // namespace tollvane
