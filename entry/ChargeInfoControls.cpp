#include "entry/ChargeInfoControls.h"

namespace tollvane {

ChargeInfoControls::ChargeInfoControls(Form& form)
    : optTransType{&form.control<OptionButton>("optTransType", transtype::charge),
                   &form.control<OptionButton>("optTransType", transtype::refund),
                   &form.control<OptionButton>("optTransType", transtype::voiding)},
      txtCardName(form.control<TextBox>("txtCardName")),
      txtCardNumber(form.control<TextBox>("txtCardNumber")),
      txtCardCode(form.control<TextBox>("txtCardCode")),
      cboExpMonth(form.control<ComboBox>("cboExpMonth")),
      cboExpYear(form.control<ComboBox>("cboExpYear")),
      txtAmount(form.control<TextBox>("txtAmount")),
      chkTaxExempt(form.control<CheckBox>("chkTaxExempt")),
      txtTaxAmount(form.control<TextBox>("txtTaxAmount")),
      chkVoiceAuth(form.control<CheckBox>("chkVoiceAuth")),
      txtAuthNum(form.control<TextBox>("txtAuthNum")),
      txtTransactionNumber(form.control<TextBox>("txtTransactionNumber")),
      txtBillToStreet(form.control<TextBox>("txtBillToStreet")),
      txtBillToCity(form.control<TextBox>("txtBillToCity")),
      cboBillToState(form.control<ComboBox>("cboBillToState")),
      txtBillToZip(form.control<TextBox>("txtBillToZip")),
      txtEMail(form.control<TextBox>("txtEMail")),
      txtDescription(form.control<TextBox>("txtDescription")),
      txtInvoiceNumber(form.control<TextBox>("txtInvoiceNumber")),
      txtPONumber(form.control<TextBox>("txtPONumber")), Label6(form.control<Label>("Label6")),
      Label7(form.control<Label>("Label7")), txtStAddr(form.control<TextBox>("txtStAddr")),
      txtZipCode(form.control<TextBox>("txtZipCode")), cmdSubmit(form.control<Button>("cmdSubmit")),
      cmdCancel(form.control<Button>("cmdCancel")), cmdModify(form.control<Button>("cmdModify")),
      txtMagStripe(form.control<TextBox>("txtMagStripe")),
      txtKbBuffer(form.control<TextBox>("txtKbBuffer")),
      lblCompanyInfo(form.control<Label>("lblCompanyInfo")),
      lblStateName(form.control<Label>("lblStateName")),
      tmrDisplay(form.control<Timer>("tmrDisplay")), tmrSwipe(form.control<Timer>("tmrSwipe")),
      tmrKbBuffer(form.control<Timer>("tmrKbBuffer")),
      sbrStatus(form.control<StatusBar>("sbrStatus")),
      mnuProgram(form.control<MenuItem>("mnuProgram")),
      mnu_PZendaSettings(form.control<MenuItem>("mnu_PZendaSettings")),
      mnu_CompanyInfo(form.control<MenuItem>("mnu_CompanyInfo")),
      mnu_Report(form.control<MenuItem>("mnu_Report")),
      mnu_HSep(form.control<MenuItem>("mnu_HSep")),
      mnuPrinter(form.control<MenuItem>("mnuPrinter")),
      mnuWindow(form.control<MenuItem>("mnuWindow")),
      mnu_POptions(form.control<MenuItem>("mnu_POptions")),
      mnu_POAnone(form.control<MenuItem>("mnu_POAnone")),
      mnu_POALowerCase(form.control<MenuItem>("mnu_POALowerCase")),
      mnu_POAUpperCase(form.control<MenuItem>("mnu_POAUpperCase")),
      mnu_POAProperCase(form.control<MenuItem>("mnu_POAProperCase")),
      mnu_PODefault(form.control<MenuItem>("mnu_PODefault")),
      mnu_POMore(form.control<MenuItem>("mnu_POMore")), mnuExit(form.control<MenuItem>("mnuExit")),
      mnu_Print(form.control<MenuItem>("mnu_Print")),
      mnu_PrintReceipt(form.control<MenuItem>("mnu_PrintReceipt")),
      mnu_HContents(form.control<MenuItem>("mnu_HContents")),
      mnu_HData(form.control<MenuItem>("mnu_HData")),
      mnu_About(form.control<MenuItem>("mnu_About")),
      mnu_PGateway(form.control<MenuItem>("mnu_PGateway")),
      mnu_PSettings(form.control<MenuItem>("mnu_PSettings")) {}

int ChargeInfoControls::selectedTransactionType() const {
    for (int type = 0; type < transtype::count; ++type) {
        if (optTransType[static_cast<std::size_t>(type)]->selected()) {
            return type;
        }
    }
    return -1;
}

} // namespace tollvane
