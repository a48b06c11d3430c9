#include "entry/NewEntry.h"

#include "output/CompanyTexts.h"
#include "platform/LocaleStyle.h"
#include "settings/AppProperties.h"

namespace tollvane {

namespace {

void offerInvoiceNumber(const Desktop& desktop, ChargeInfoControls& controls) {
    AppProperties settings(desktop);
    if (!settings.DefaultInvoiceNumber()) {
        controls.txtInvoiceNumber.setText("");
        return;
    }
    const std::string number = defaultInvoiceNumber(desktop);
    controls.txtInvoiceNumber.setText(number);
    if (settings.InvoiceNumberForPONumber()) {
        controls.txtPONumber.setText(number);
    }
}

void setMoneyToZero(const Desktop& desktop, ChargeInfoControls& controls) {
    const std::string zero = zeroCurrency(desktop);
    controls.txtAmount.setText(zero);
    controls.txtTaxAmount.setText(zero);
}

} // namespace

std::string zeroCurrency(const Desktop& desktop) {
    return currencyText(Money(), moneyStyle(desktop.locale));
}

void clearEntry(const Desktop& desktop, ChargeInfoControls& controls) {
    for (TextBox* secret :
         {&controls.txtCardNumber, &controls.txtCardCode, &controls.txtMagStripe}) {
        secret->wipeText();
    }
    for (TextBox* box :
         {&controls.txtCardName, &controls.txtAuthNum, &controls.txtTransactionNumber,
          &controls.txtBillToStreet, &controls.txtBillToCity, &controls.txtBillToZip,
          &controls.txtStAddr, &controls.txtZipCode, &controls.txtEMail, &controls.txtDescription,
          &controls.txtInvoiceNumber, &controls.txtPONumber}) {
        box->setText("");
    }
    // The next customer's card must not inherit this one's expiry.
    for (ComboBox* box : {&controls.cboBillToState, &controls.cboExpMonth, &controls.cboExpYear}) {
        box->setListIndex(-1);
    }
    setMoneyToZero(desktop, controls);
    controls.chkVoiceAuth.setChecked(false);
    offerInvoiceNumber(desktop, controls);
}

void resetFields(const Desktop& desktop, ChargeInfoControls& controls) {
    for (TextBox* secret : {&controls.txtCardNumber, &controls.txtCardCode}) {
        secret->wipeText();
    }
    for (TextBox* box :
         {&controls.txtCardName, &controls.txtAuthNum, &controls.txtTransactionNumber,
          &controls.txtBillToStreet, &controls.txtBillToCity, &controls.txtBillToZip,
          &controls.txtEMail, &controls.txtDescription}) {
        box->setText("");
    }
    setMoneyToZero(desktop, controls);
    controls.cboBillToState.setListIndex(-1);
}

} // namespace tollvane
