// Which event of an entry field goes where.

#include "app/CommonRoutines.h"
#include "entry/ChargeInfo.h"
#include "entry/FieldFilters.h"

#include <utility>

namespace tollvane {

void ChargeInfo::bindFieldEvents() {
    bindCardEvents();
    bindMoneyEvents();
    bindAddressEvents();
    attachFormats();
    bindSwipeEvents();
}

void ChargeInfo::bindCardEvents() {
    for (TextBox* box : {&controls_.txtCardName, &controls_.txtCardNumber,
                         &controls_.txtDescription, &controls_.txtEMail, &controls_.txtBillToCity,
                         &controls_.txtBillToStreet, &controls_.txtBillToZip, &controls_.txtStAddr,
                         &controls_.txtTransactionNumber, &controls_.txtZipCode}) {
        box->on.keyDown = [this](int& keyCode, int) {
            guard("There was an error starting a new entry.", [&] { startAfterFinished(keyCode); });
        };
    }
    for (TextBox* box : {&controls_.txtCardName, &controls_.txtCardNumber, &controls_.txtAuthNum,
                         &controls_.txtTransactionNumber, &controls_.txtBillToZip,
                         &controls_.txtEMail, &controls_.txtInvoiceNumber, &controls_.txtPONumber,
                         &controls_.txtStAddr, &controls_.txtZipCode}) {
        box->on.gotFocus = [this, box] { SelectAllText(desktop_.mouse, *box, false); };
    }
    for (TextBox* box : {&controls_.txtCardName, &controls_.txtStAddr}) {
        box->on.keyPress = filterNameKey;
        box->on.paste = filterNamePaste;
    }
    controls_.txtCardNumber.on.paste = keepDigits;
    for (TextBox* box : {&controls_.txtCardName, &controls_.txtCardNumber}) {
        box->on.lostFocus = [this, box] {
            guard("There was an error moving the focus.", [&] { returnFocusFrom(*box); });
        };
    }
}

void ChargeInfo::bindMoneyEvents() {
    constexpr const char* kSentence = "There was an error showing the amount.";
    controls_.txtAmount.on.gotFocus = guarded(kSentence, &ChargeInfo::txtAmount_GotFocus);
    controls_.txtAmount.on.lostFocus = guarded(kSentence, &ChargeInfo::txtAmount_LostFocus);
    controls_.txtTaxAmount.on.gotFocus = guarded(kSentence, &ChargeInfo::txtTaxAmount_GotFocus);
    controls_.txtTaxAmount.on.lostFocus = guarded(kSentence, &ChargeInfo::txtTaxAmount_LostFocus);
    for (TextBox* box : {&controls_.txtAmount, &controls_.txtTaxAmount}) {
        box->on.keyPress = [this, box](int& keyAscii) {
            guard("There was an error checking the amount.",
                  [&] { money_.filterKey(*box, keyAscii); });
        };
        box->on.paste = [this, box](std::string& text) {
            guard("There was an error checking the amount.",
                  [&] { money_.filterPaste(*box, text); });
        };
    }
}

void ChargeInfo::bindAddressEvents() {
    controls_.txtZipCode.on.keyPress = filterZipKey;
    controls_.txtZipCode.on.paste = filterZipPaste;
    controls_.txtBillToZip.on.lostFocus =
        guarded("There was an error formatting the zip code.", &ChargeInfo::txtBillToZip_LostFocus);
    controls_.cboBillToState.on.click = [this] { stateName_.show(); };
    controls_.tmrDisplay.on.timer = [this] {
        guard("There was an error hiding the state name.", [this] { stateName_.hide(); });
    };
}

void ChargeInfo::attachFormats() {
    const std::array boxes{&controls_.txtBillToStreet, &controls_.txtBillToCity,
                           &controls_.txtDescription, &controls_.txtCardCode};
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        formats_[i].SetTextBox(*boxes[i]);
    }
}

void ChargeInfo::bindSwipeEvents() {
    controls_.txtMagStripe.on.change =
        guarded("There was an error switching the card fields.", &ChargeInfo::txtMagStripe_Change);
    controls_.txtKbBuffer.on.change = [this] {
        guard("There was an error reading the card.", [this] { swipe_.bufferChanged(); });
    };
    controls_.tmrKbBuffer.on.timer = [this] {
        guard("There was an error reading the card.", [this] { swipe_.bufferTimeIsOver(); });
    };
    controls_.tmrSwipe.on.timer =
        guarded("There was an error reading the card.", &ChargeInfo::tmrSwipe_Timer);
    // Last of all: what was held back in a field belongs there before anything else happens to it.
    const auto settled = [this] {
        guard("There was an error reading the keyboard.", [this] { swipe_.settle(); });
    };
    for (Control* control : form_->controls()) {
        auto* box = dynamic_cast<TextBox*>(control);
        if (box == nullptr || box == &controls_.txtKbBuffer || box == &controls_.txtMagStripe) {
            continue;
        }
        box->on.lostFocus = [settled, next = std::move(box->on.lostFocus)] {
            settled();
            if (next) {
                next();
            }
        };
        box->on.paste = [settled, next = std::move(box->on.paste)](std::string& text) {
            settled();
            if (next) {
                next(text);
            }
        };
    }
}

} // namespace tollvane
