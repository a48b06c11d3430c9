#include "entry/BillingAddressCheck.h"

#include "entry/FieldMessages.h"

namespace tollvane {

namespace {
constexpr std::string_view kTitle = "Incomplete Billing Address";
} // namespace

BillingAddressCheck::BillingAddressCheck(const Desktop& desktop, ChargeInfoControls& controls,
                                         ChargeComponent& charge, AppProperties& settings)
    : desktop_(desktop), controls_(controls), charge_(charge), settings_(settings) {}

bool BillingAddressCheck::check() {
    charge_.SetStreetAddress(controls_.txtBillToStreet.text());
    charge_.SetCity(controls_.txtBillToCity.text());
    charge_.SetState(controls_.cboBillToState.text());
    charge_.SetZipCode(controls_.txtBillToZip.text());

    const bool required = settings_.BillToAddressRequired();
    if (!required && !settings_.ShopAddressForBillToAddress()) {
        return true;
    }
    Control* const empty = firstEmptyField();
    if (empty == nullptr) {
        return true;
    }
    if (required) {
        return refuse(desktop_.messageBoxes, *empty, kTitle,
                      "The billing adress is not complete. "
                      "The billing address is a required field.",
                      "Enter the complete the billing address to continue.");
    }
    if (operatorReturns()) {
        empty->setFocus();
        return false;
    }
    useShopAddress();
    return true;
}

Control* BillingAddressCheck::firstEmptyField() const {
    if (charge_.StreetAddress().empty()) {
        return &controls_.txtBillToStreet;
    }
    if (charge_.State().empty()) {
        return &controls_.cboBillToState;
    }
    if (charge_.City().empty()) {
        return &controls_.txtBillToCity;
    }
    return charge_.ZipCode().empty() ? &controls_.txtBillToZip : nullptr;
}

bool BillingAddressCheck::operatorReturns() const {
    return confirmed(desktop_.messageBoxes, kTitle,
                     "The billing adress is not complete. If a complete billing address is not "
                     "supplied your shop address will be used instead and may result in a higher "
                     "rate charged for this transaction.\r\n\r\n"
                     "Do you want to return to the main form and complete the billing address "
                     "now?");
}

void BillingAddressCheck::useShopAddress() {
    charge_.SetStreetAddress(settings_.CompanyStreet());
    charge_.SetCity(settings_.CompanyCity());
    charge_.SetState(settings_.CompanyState());
    charge_.SetZipCode(settings_.CompanyZip());
}

} // namespace tollvane
