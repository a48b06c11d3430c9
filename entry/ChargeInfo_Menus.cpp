// The menus of the transaction form: what they show when they open, and their settings.

#include "controls/FormatType.h"
#include "dialogs/frmOptions.h"
#include "entry/ChargeInfo.h"
#include "gateway/HostDataServer.h"
#include "settings/AppProperties.h"

namespace tollvane {

void ChargeInfo::bindMenuEvents() {
    bindProgramMenu();
    bindHistoryMenu();
    bindOptionsMenu();
    bindHelpMenu();
    controls_.cmdModify.on.click =
        guarded("There was an error opening the menu.", &ChargeInfo::cmdModify_Click);
    controls_.mnu_PGateway.on.click =
        guarded("There was an error configuring the gateway.", &ChargeInfo::mnu_PGateway_Click);
    controls_.mnu_PSettings.on.click = guarded(
        "There was an error configuring the gateway settings.", &ChargeInfo::mnu_PSettings_Click);
}

void ChargeInfo::bindProgramMenu() {
    controls_.mnuProgram.on.click =
        guarded("There was an error opening the menu.", &ChargeInfo::mnuProgram_Click);
    controls_.mnu_PZendaSettings.on.click = guarded(
        "There was an error configuring the data settings.", &ChargeInfo::mnu_PZendaSettings_Click);
    controls_.mnu_CompanyInfo.on.click = guarded(
        "There was an error opening the company information.", &ChargeInfo::mnu_CompanyInfo_Click);
    controls_.mnuExit.on.click =
        guarded("There was an error closing the form.", &ChargeInfo::mnuExit_Click);
    controls_.mnu_Print.on.click =
        guarded("There was an error opening the menu.", &ChargeInfo::mnu_Print_Click);
    controls_.mnu_PrintReceipt.on.click =
        guarded("There was an error printing the receipt.", &ChargeInfo::mnu_PrintReceipt_Click);
}

void ChargeInfo::bindHistoryMenu() {
    controls_.mnu_Report.on.click = guarded("There was an error starting the transaction browser.",
                                            &ChargeInfo::mnu_Report_Click);
    controls_.mnuPrinter.on.click = guarded("There was an error printing the transaction history.",
                                            &ChargeInfo::mnuPrinter_Click);
    controls_.mnuWindow.on.click = guarded("There was an error opening the transaction history.",
                                           &ChargeInfo::mnuWindow_Click);
}

void ChargeInfo::bindOptionsMenu() {
    constexpr const char* kFormat = "There was an error formatting the text.";
    controls_.mnu_POptions.on.click =
        guarded("There was an error opening the menu.", &ChargeInfo::mnu_POptions_Click);
    controls_.mnu_POAnone.on.click = guarded(kFormat, &ChargeInfo::mnu_POAnone_Click);
    controls_.mnu_POALowerCase.on.click = guarded(kFormat, &ChargeInfo::mnu_POALowerCase_Click);
    controls_.mnu_POAUpperCase.on.click = guarded(kFormat, &ChargeInfo::mnu_POAUpperCase_Click);
    controls_.mnu_POAProperCase.on.click = guarded(kFormat, &ChargeInfo::mnu_POAProperCase_Click);
    controls_.mnu_PODefault.on.click = guarded(
        "There was an error setting the default invoice number.", &ChargeInfo::mnu_PODefault_Click);
    controls_.mnu_POMore.on.click =
        guarded("There was an error opening the options.", &ChargeInfo::mnu_POMore_Click);
}

void ChargeInfo::bindHelpMenu() {
    controls_.mnu_HContents.on.click =
        guarded("There was an error opening the help.", &ChargeInfo::mnu_HContents_Click);
    controls_.mnu_HData.on.click =
        guarded("There was an error showing the data path.", &ChargeInfo::mnu_HData_Click);
    controls_.mnu_About.on.click = guarded("There was an error displaying the program information.",
                                           &ChargeInfo::mnu_About_Click);
}

void ChargeInfo::mnuProgram_Click() {
    bool logIsThere = false;
    try {
        logIsThere = transactionLogExists();
    } catch (...) {
        // A log that nobody can name cannot be shown either; a menu that opens shows no boxes.
    }
    controls_.mnuPrinter.setEnabled(logIsThere);
    controls_.mnuWindow.setEnabled(logIsThere);
}

void ChargeInfo::mnu_PZendaSettings_Click() {
    HostDataServer(components_.environment().DCObject()).ConfigureSettings();
}

void ChargeInfo::mnu_CompanyInfo_Click() {
    ShowCompanyInfo();
}

void ChargeInfo::mnuExit_Click() {
    form_->close();
}

void ChargeInfo::mnu_Print_Click() {
    controls_.mnu_PrintReceipt.setEnabled(transactionApproved_);
}

void ChargeInfo::mnu_PrintReceipt_Click() {
    Print_Receipt();
}

void ChargeInfo::mnu_POptions_Click() {
    AppProperties settings(desktop_);
    const std::int32_t stored = settings.FormatType();
    controls_.mnu_POAnone.setChecked(stored == formattype::none);
    controls_.mnu_POALowerCase.setChecked(stored == formattype::lowerCase);
    controls_.mnu_POAUpperCase.setChecked(stored == formattype::upperCase);
    controls_.mnu_POAProperCase.setChecked(stored == formattype::properCase);
    controls_.mnu_PODefault.setChecked(settings.DefaultInvoiceNumber());
}

void ChargeInfo::chooseFormat(std::int32_t type) {
    AppProperties(desktop_).SetFormatType(type);
    ApplyAutoFormat();
}

void ChargeInfo::mnu_POAnone_Click() {
    chooseFormat(formattype::none);
}

void ChargeInfo::mnu_POALowerCase_Click() {
    chooseFormat(formattype::lowerCase);
}

void ChargeInfo::mnu_POAUpperCase_Click() {
    chooseFormat(formattype::upperCase);
}

void ChargeInfo::mnu_POAProperCase_Click() {
    chooseFormat(formattype::properCase);
}

void ChargeInfo::mnu_PODefault_Click() {
    AppProperties settings(desktop_);
    settings.SetDefaultInvoiceNumber(!settings.DefaultInvoiceNumber());
}

void ChargeInfo::mnu_POMore_Click() {
    frmOptions dialog(desktop_);
    dialog.onSaved = [this] { ApplyAutoFormat(); };
    dialog.showModal(*form_);
}

void ChargeInfo::cmdModify_Click() {
    form_->popUpMenu("mnuPopup");
}

void ChargeInfo::mnu_PGateway_Click() {
    ChargeComponent(components_.charge()).ConfigureGateway();
    Form_Activate();
}

void ChargeInfo::mnu_PSettings_Click() {
    ChargeComponent(components_.charge()).ConfigureSettings();
}

} // namespace tollvane
