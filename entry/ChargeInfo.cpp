#include "entry/ChargeInfo.h"

#include "app/CommonRoutines.h"
#include "entry/CardNumberValidation.h"
#include "entry/ChargeInfoLayout.h"
#include "entry/ColourCommands.h"
#include "entry/FieldStates.h"
#include "entry/NewEntry.h"
#include "entry/Raised.h"
#include "entry/Validation.h"
#include "output/CompanyTexts.h"
#include "output/PaymentRecord.h"
#include "platform/Guard.h"

namespace tollvane {

ChargeInfo::ChargeInfo(const Desktop& desktop, Components& components)
    : desktop_(desktop), components_(components), form_(desktop.forms.create(chargeInfoLayout())),
      controls_(*form_), expiry_(desktop_, controls_), money_(desktop_, controls_),
      stateName_(desktop_.program, desktop_.messageBoxes, controls_.cboBillToState,
                 controls_.lblStateName, controls_.tmrDisplay),
      swipe_(
          desktop_, *form_, controls_, expiry_,
          {.recordStarted =
               guarded("There was an error starting a new entry.", &ChargeInfo::startSwipe),
           .recordEnded = guarded("There was an error moving the focus.", &ChargeInfo::endSwipe)}),
      formats_{AutoFormatTextbox(desktop_.locale), AutoFormatTextbox(desktop_.locale),
               AutoFormatTextbox(desktop_.locale), AutoFormatTextbox(desktop_.locale)} {
    bindEvents();
    Form_Initialize();
}

void ChargeInfo::show() {
    form_->show();
}

void ChargeInfo::guard(std::string_view sentence, const std::function<void()>& body) noexcept {
    tollvane::guarded(desktop_.messageBoxes, sentence, body);
}

void ChargeInfo::reportError(std::string_view sentence, const Error& error) noexcept {
    try {
        DisplayError(sentence, error);
    } catch (...) {
        // A box that cannot be shown leaves the operator with the form as it is.
    }
}

std::function<void()> ChargeInfo::guarded(std::string_view sentence,
                                          void (ChargeInfo::*handler)()) {
    return [this, sentence, handler] { guard(sentence, [this, handler] { (this->*handler)(); }); };
}

void ChargeInfo::DisplayError(std::string_view sentence, const Error& error) {
    desktop_.messageBoxes.show({.text = failureText(sentence, error), .title = {}});
}

void ChargeInfo::SetTransType(int type) {
    transType_ = type;
    LayoutForType();
}

void ChargeInfo::LayoutForType() {
    layOutForType(controls_, transType_);
    money_.recolour();
    applySwipeHold();
}

void ChargeInfo::SetTransactionApproved(bool approved) {
    transactionApproved_ = approved;
    controls_.cmdSubmit.setEnabled(!approved);
    controls_.cmdCancel.setCaption(approved ? "Finished" : "Cancel");
}

void ChargeInfo::ClearText() {
    clearEntry(desktop_, controls_);
    swipe_.forget();
    money_.recolour();
    swipeRecord_.fill(' ');
    SetTransactionApproved(false);
}

void ChargeInfo::ResetFields() {
    resetFields(desktop_, controls_);
    expiry_.selectFirst();
}

void ChargeInfo::ShowExtendedData(bool vblnPresent) {
    controls_.txtStAddr.setVisible(vblnPresent);
    controls_.txtZipCode.setVisible(vblnPresent);
    controls_.Label6.setVisible(vblnPresent);
    controls_.Label7.setVisible(vblnPresent);
}

void ChargeInfo::EnableForm(bool enable) noexcept {
    for (Control* control : form_->controls()) {
        switchControl(*control, enable);
    }
    for (Button* button : {&controls_.cmdSubmit, &controls_.cmdModify, &controls_.cmdCancel}) {
        switchControl(*button, enable);
    }
    try {
        if (transType_ >= 0 && transType_ < transtype::count) {
            const Raised restoring(restoringType_);
            controls_.optTransType[static_cast<std::size_t>(transType_)]->select();
        }
    } catch (...) {
        // The type stays as it was; the fields still follow it.
    }
    try {
        if (enable) {
            LayoutForType();
        }
    } catch (...) {
        // What is left is the fields' look.
    }
}

void ChargeInfo::ShowStatus(const std::string& text) {
    controls_.sbrStatus.setPanelText(kStatusPanel, text);
    controls_.sbrStatus.refresh();
}

bool ChargeInfo::ValidateTransaction() {
    // A reference of its own: the form may be closed while a question is open.
    ChargeComponent charge = components_.charge();
    return Validation(desktop_, controls_, charge).ValidateTransaction();
}

bool ChargeInfo::WriteZendaRecord() {
    return tollvane::WriteZendaRecord(desktop_, components_, transType_);
}

std::string ChargeInfo::CompanyAddressBlock() {
    return companyAddressBlock(desktop_);
}
std::string ChargeInfo::DefaultInvoiceNumber() {
    return defaultInvoiceNumber(desktop_);
}

void ChargeInfo::optTransType_Click(int index) {
    if (restoringType_) {
        return;
    }
    SetTransType(index);
    if (transactionApproved_) {
        ClearText();
    }
}

void ChargeInfo::chkTaxExempt_Click() {
    if (controls_.chkTaxExempt.checked()) {
        controls_.txtTaxAmount.setText(zeroCurrency(desktop_));
        money_.recolour();
    }
}

void ChargeInfo::chkVoiceAuth_Click() {
    SetFieldState(controls_.txtAuthNum, controls_.chkVoiceAuth.checked());
}

void ChargeInfo::txtCardNumber_Change() {
    // A keyed number replaces a swipe.
    controls_.txtMagStripe.wipeText();
    controls_.cmdCancel.setCaption("Cancel");
}

void ChargeInfo::txtCardNumber_Validate(bool& cancel) {
    // A refund may name the card of the earlier charge by its last four digits, which no check of
    // whole numbers would let pass.
    constexpr std::size_t kLastDigits = 4;
    const SecretText pan = controls_.txtCardNumber.secretText();
    if (pan.empty() || (transType_ == transtype::refund && pan.size() == kLastDigits)) {
        return;
    }
    cancel = true; // also when the question itself fails
    cancel = !ValidateCardNumber(desktop_, pan);
    if (cancel) {
        SelectAllText(desktop_.mouse, controls_.txtCardNumber, false);
    }
}

void ChargeInfo::Form_KeyDown(int keyCode, int shift) {
    if (submitting_) {
        return;
    }
    settleBeforeKey(keyCode);
    if (isColourCommand(keyCode, shift)) {
        paintRandomColours(*form_, desktop_.random);
    }
}

void ChargeInfo::Form_DblClick() {
    restoreColours(*form_);
}

} // namespace tollvane
