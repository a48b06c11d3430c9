#include "entry/FieldStates.h"

#include <array>
#include <string_view>

namespace tollvane {

namespace {

/// Runs one step whose failure leaves the others standing. False when it failed.
template <class Step>
bool skippingErrors(Step&& step) noexcept {
    try {
        step();
        return true;
    } catch (...) {
        return false; // a control without the property keeps what it has
    }
}

using Usable = std::array<bool, transtype::count>;

constexpr Usable kChargeOnly{true, false, false};
constexpr Usable kChargeAndRefund{true, true, false};
constexpr Usable kAlways{true, true, true};
constexpr Usable kRefundAndVoid{false, true, true};

constexpr std::array<std::string_view, transtype::count> kAmountTips{
    "Enter the amount to be charged.",
    "Enter any amount up to the amount of the original transaction.",
    "Enter the amount of the original transaction. The original transaction will be voided."};

constexpr std::array<std::string_view, transtype::count> kTransactionNumberTips{
    "The host transaction number is returned here", "Enter the original transaction number here",
    "Enter the original transaction number here"};

} // namespace

void switchControl(Control& control, bool enabled) noexcept {
    const auto step = [&] { control.setEnabled(enabled); };
    if (!skippingErrors(step)) {
        skippingErrors(step);
    }
}

void SetFieldState(Control& control, bool usable) noexcept {
    switchControl(control, usable);
    skippingErrors([&] { control.setTabStop(usable); });
    skippingErrors([&] { control.setLocked(!usable); });
    const ControlKind kind = control.kind();
    if (kind == ControlKind::textBox || kind == ControlKind::comboBox) {
        using enum Colour::System;
        skippingErrors([&] { control.setForeColour(usable ? windowText : greyText); });
        skippingErrors([&] { control.setBackColour(usable ? window : buttonFace); });
    }
}

void layOutForType(ChargeInfoControls& controls, int transactionType) {
    if (transactionType < 0 || transactionType >= transtype::count) {
        return;
    }
    const auto type = static_cast<std::size_t>(transactionType);
    const auto apply = [type](Control& control, const Usable& usable) {
        SetFieldState(control, usable[type]);
    };
    const bool exempt = controls.chkTaxExempt.checked();
    const bool byTelephone = controls.chkVoiceAuth.checked();

    apply(controls.txtCardName, kChargeOnly);
    apply(controls.txtCardNumber, kChargeAndRefund);
    apply(controls.txtCardCode, kChargeOnly);
    apply(controls.cboExpMonth, kChargeOnly);
    apply(controls.cboExpYear, kChargeOnly);
    apply(controls.txtAmount, kAlways);
    apply(controls.chkTaxExempt, kChargeOnly);
    apply(controls.txtTaxAmount, {!exempt, false, false});
    apply(controls.chkVoiceAuth, kChargeOnly);
    apply(controls.txtAuthNum, {byTelephone, false, false});
    apply(controls.txtTransactionNumber, kRefundAndVoid);
    apply(controls.txtBillToStreet, kChargeOnly);
    apply(controls.txtBillToCity, kChargeOnly);
    apply(controls.cboBillToState, kChargeOnly);
    apply(controls.txtBillToZip, kChargeOnly);

    controls.txtAmount.setToolTip(std::string(kAmountTips[type]));
    controls.txtTransactionNumber.setToolTip(std::string(kTransactionNumberTips[type]));
}

} // namespace tollvane
