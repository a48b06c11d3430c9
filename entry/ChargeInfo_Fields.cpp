// What the entry fields do as the operator works in them.

#include "entry/ChargeInfo.h"
#include "entry/FieldFilters.h"
#include "entry/FieldStates.h"
#include "gateway/TransactionType.h"
#include "settings/AppProperties.h"

#include <utility>

namespace tollvane {

namespace {

constexpr int kLongestAmount = 9;
constexpr int kShiftKey = 16; // the first of the keys that only accompany others ...
constexpr int kAltKey = 18;   // ... and the last

constexpr int kEnd = 35; // with Home and the arrows behind it
constexpr int kArrowDown = 40;
constexpr int kDelete = 46;

} // namespace

void ChargeInfo::startAfterFinished(int keyCode) {
    const bool accompanies = keyCode >= kShiftKey && keyCode <= kAltKey;
    if (transactionApproved_ && !accompanies) {
        ClearText();
    }
}

void ChargeInfo::txtAmount_GotFocus() {
    money_.startEditing(controls_.txtAmount, kLongestAmount);
    // A box would take the rest of the reader's keys, and its Enter would press OK.
    amountTipIsOwed_ = swipe_.inBurst();
    if (!amountTipIsOwed_) {
        showAmountTip();
    }
}

void ChargeInfo::showAmountTip() {
    if (AppProperties(desktop_).ShowRefundVoidWarning()) {
        desktop_.messageBoxes.show({.text = controls_.txtAmount.toolTip(), .title = "Tip"});
    }
}

void ChargeInfo::txtAmount_LostFocus() {
    money_.finishEditing(controls_.txtAmount);
    returnFocusFrom(controls_.txtAmount);
}

int ChargeInfo::longestTax() {
    return components_.charge().TransactionField(gatewayfield::tax).maximumLength() - 1;
}

void ChargeInfo::txtTaxAmount_GotFocus() {
    money_.startEditing(controls_.txtTaxAmount, longestTax());
}

void ChargeInfo::txtTaxAmount_LostFocus() {
    money_.finishEditing(controls_.txtTaxAmount);
    returnFocusFrom(controls_.txtTaxAmount);
}

void ChargeInfo::txtBillToZip_LostFocus() {
    const std::string zip = controls_.txtBillToZip.text();
    controls_.txtBillToZip.setText(hyphenatedZip(zip));
}

void ChargeInfo::ApplyAutoFormat() {
    const std::int32_t type = AppProperties(desktop_).FormatType();
    for (AutoFormatTextbox& format : formats_) {
        const bool isCode = format.TextBox() == &controls_.txtCardCode;
        format.SetFormatType(isCode ? formattype::digitsOnly : type);
    }
}

void ChargeInfo::Form_KeyPress(int& keyAscii) {
    if (submitting_) {
        // A card that is swiped now would begin a new entry in the midst of this one.
        keyAscii = 0;
        return;
    }
    swipe_.keyPressed(keyAscii);
    if (!swipe_.inBurst()) {
        amountTipIsOwed_ = false;
    }
}

void ChargeInfo::settleBeforeKey(int keyCode) {
    if ((keyCode >= kEnd && keyCode <= kArrowDown) || keyCode == kDelete) {
        swipe_.settle();
    }
}

void ChargeInfo::startSwipe() {
    ClearText();
    txtCardNumber_Change();
    editMoneyBoxInFocus();
}

void ChargeInfo::editMoneyBoxInFocus() {
    if (controls_.txtAmount.hasFocus()) {
        money_.startEditing(controls_.txtAmount, kLongestAmount);
    } else if (controls_.txtTaxAmount.hasFocus()) {
        money_.startEditing(controls_.txtTaxAmount, longestTax());
    }
}

void ChargeInfo::endSwipe() {
    if (!controls_.txtAmount.hasFocus()) {
        controls_.txtAmount.setFocus();
    }
}

void ChargeInfo::tmrSwipe_Timer() {
    swipe_.keysPaused();
    if (std::exchange(amountTipIsOwed_, false) && controls_.txtAmount.hasFocus()) {
        showAmountTip();
    }
}

void ChargeInfo::txtMagStripe_Change() {
    applySwipeHold();
}

void ChargeInfo::applySwipeHold() {
    if (transType_ == transtype::charge) {
        SetFieldState(controls_.txtCardCode, controls_.txtMagStripe.secretText().empty());
    }
}

} // namespace tollvane
