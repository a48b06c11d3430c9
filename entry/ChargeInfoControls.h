#pragma once

#include "gateway/TransactionType.h"
#include "platform/Form.h"

#include <array>

namespace tollvane {

/// The controls of the transaction form under their names.
struct ChargeInfoControls {
    /// Raises 730 when the form lacks one of them.
    explicit ChargeInfoControls(Form& form);

    /// Index of the selected `optTransType` button, or -1.
    int selectedTransactionType() const;

    std::array<OptionButton*, transtype::count> optTransType;

    TextBox& txtCardName;
    TextBox& txtCardNumber;
    TextBox& txtCardCode;
    ComboBox& cboExpMonth;
    ComboBox& cboExpYear;

    TextBox& txtAmount;
    CheckBox& chkTaxExempt;
    TextBox& txtTaxAmount;

    CheckBox& chkVoiceAuth;
    TextBox& txtAuthNum;
    TextBox& txtTransactionNumber;

    TextBox& txtBillToStreet;
    TextBox& txtBillToCity;
    ComboBox& cboBillToState;
    TextBox& txtBillToZip;

    TextBox& txtEMail;
    TextBox& txtDescription;
    TextBox& txtInvoiceNumber;
    TextBox& txtPONumber;

    Label& Label6;
    Label& Label7;
    TextBox& txtStAddr;
    TextBox& txtZipCode;

    Button& cmdSubmit;
    Button& cmdCancel;
    Button& cmdModify;

    TextBox& txtMagStripe;
    TextBox& txtKbBuffer;
    Label& lblCompanyInfo;
    Label& lblStateName;
    Timer& tmrDisplay;
    Timer& tmrSwipe;
    Timer& tmrKbBuffer;
    StatusBar& sbrStatus;

    MenuItem& mnuProgram;
    MenuItem& mnu_PZendaSettings;
    MenuItem& mnu_CompanyInfo;
    MenuItem& mnu_Report;
    MenuItem& mnu_HSep;
    MenuItem& mnuPrinter;
    MenuItem& mnuWindow;
    MenuItem& mnu_POptions;
    MenuItem& mnu_POAnone;
    MenuItem& mnu_POALowerCase;
    MenuItem& mnu_POAUpperCase;
    MenuItem& mnu_POAProperCase;
    MenuItem& mnu_PODefault;
    MenuItem& mnu_POMore;
    MenuItem& mnuExit;
    MenuItem& mnu_Print;
    MenuItem& mnu_PrintReceipt;
    MenuItem& mnu_HContents;
    MenuItem& mnu_HData;
    MenuItem& mnu_About;
    MenuItem& mnu_PGateway;
    MenuItem& mnu_PSettings;
};

} // namespace tollvane
