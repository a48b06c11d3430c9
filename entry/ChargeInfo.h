#pragma once

#include "app/Components.h"
#include "controls/AutoFormatTextbox.h"
#include "controls/StateNameDisplay.h"
#include "entry/ChargeInfoControls.h"
#include "entry/ExpiryBoxes.h"
#include "entry/MoneyBoxes.h"
#include "entry/SwipeCapture.h"
#include "platform/Desktop.h"
#include "platform/Error.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tollvane {

/// The transaction form, the program's one main window: modes, submission, and what happens around
/// them. Its handlers never let an error out.
class ChargeInfo {
public:
    /// Builds the form and initialises it, hidden. `components` outlives it and has been created.
    ChargeInfo(const Desktop& desktop, Components& components);
    ChargeInfo(const ChargeInfo&) = delete;
    ChargeInfo& operator=(const ChargeInfo&) = delete;

    void show();
    Form& form() { return *form_; }

    /// The current transaction type (0 charge, 1 refund, 2 void). Setting it lays the form out.
    int TransType() const { return transType_; }
    void SetTransType(int type);
    /// The current entry has been approved. Setting it switches `cmdSubmit` and the caption of
    /// `cmdCancel`.
    bool TransactionApproved() const { return transactionApproved_; }
    void SetTransactionApproved(bool approved);

    /// Clears the entry for a new transaction.
    void ClearText();
    /// Empties the fields of the current entry and sets the money boxes to zero.
    void ResetFields();
    /// Shows an error by the program's pattern: sentence, blank line, number and description.
    void DisplayError(std::string_view sentence, const Error& error);
    /// Shows or hides the card holder's own street and zip.
    void ShowExtendedData(bool vblnPresent);
    /// The current transaction type's field states.
    void LayoutForType();
    /// Disables or enables every control; enabling restores the states of the type. Never raises.
    void EnableForm(bool enable) noexcept;
    void ShowStatus(const std::string& text);
    /// The company information dialog, modal to this form. Raises what keeps it from opening.
    void ShowCompanyInfo();
    /// Gives the free-text boxes the format type of the settings.
    void ApplyAutoFormat();
    /// Prints both copies of the last transaction's receipt, or says why there is none.
    void Print_Receipt() noexcept;
    /// Tells the operator why `name` could not be launched; `code` is the shell's result, 32 or
    /// less.
    void ReportLaunchError(std::int32_t code, const std::string& name);
    /// Appends a line to the call history in the program's folder. Raises what failed.
    void AppendCallHistory(const std::string& line);

    /// True when the entry may be submitted; the charge component then holds its values.
    bool ValidateTransaction();
    /// Posts the payment into the shop's business data; raises what failed.
    bool WriteZendaRecord();
    std::string CompanyAddressBlock();
    std::string DefaultInvoiceNumber();

private:
    void bindEvents();
    void bindFormEvents();
    void bindEntryEvents();
    void bindFieldEvents();
    void bindCardEvents();
    void bindMoneyEvents();
    void bindAddressEvents();
    void bindSwipeEvents();
    void attachFormats();
    void bindButtonEvents();
    void bindMenuEvents();
    void bindProgramMenu();
    void bindHistoryMenu();
    void bindOptionsMenu();
    void bindHelpMenu();

    void Form_Initialize();
    void setMaximumLengths();
    void showDataPath();
    void showCompanyAddress();
    void Form_Load();
    void activated() noexcept;
    void Form_Activate();
    void Form_Unload();
    void Form_KeyPress(int& keyAscii);
    void Form_KeyDown(int keyCode, int shift);
    void Form_DblClick();

    void optTransType_Click(int index);
    void chkTaxExempt_Click();
    void chkVoiceAuth_Click();

    /// The first key after a finished transaction starts a new one.
    void startAfterFinished(int keyCode);
    void txtAmount_GotFocus();
    void txtAmount_LostFocus();
    void txtTaxAmount_GotFocus();
    void txtTaxAmount_LostFocus();
    void txtBillToZip_LostFocus();
    void txtMagStripe_Change();
    void tmrSwipe_Timer();
    /// Keys that move the caret find what was held back in its place.
    void settleBeforeKey(int keyCode);
    void startSwipe();
    void endSwipe();
    void editMoneyBoxInFocus();
    void showAmountTip();
    int longestTax();
    /// While a swipe is held, the card code has no use.
    void applySwipeHold();

    void txtCardNumber_Change();
    void txtCardNumber_Validate(bool& cancel);
    void cmdSubmit_Click();
    void cmdCancel_Click();
    void cmdModify_Click();

    void mnuProgram_Click();
    void mnu_PZendaSettings_Click();
    void mnu_CompanyInfo_Click();
    void mnu_Report_Click();
    void mnuPrinter_Click();
    void mnuWindow_Click();
    void mnu_POptions_Click();
    void mnu_POAnone_Click();
    void mnu_POALowerCase_Click();
    void mnu_POAUpperCase_Click();
    void mnu_POAProperCase_Click();
    void mnu_PODefault_Click();
    void mnu_POMore_Click();
    void mnuExit_Click();
    void mnu_Print_Click();
    void mnu_PrintReceipt_Click();
    void mnu_HContents_Click();
    void mnu_HData_Click();
    void mnu_About_Click();
    void mnu_PGateway_Click();
    void mnu_PSettings_Click();

    void chooseFormat(std::int32_t type);
    bool transactionLogExists();
    /// The log viewer is in the menu where it stands beside the program.
    void offerLogViewer();
    void launchTransactionLog(const std::string& verb, const std::string& name);
    /// What the Help button of a box opens.
    void showHelpOf(const Message& box);

    void submit();
    bool runOperation(std::string_view& operationName);
    void reportFailure(std::string_view operationName);
    /// What an approval brings about before anybody is told: the fields, the payment record.
    void recordApproval();
    void showApproval(std::string_view operationName);
    /// After an error that may have left a payment without its record: says in the status bar which
    /// one, for as long as the form is open.
    void keepInSight(std::string_view operationName, bool approved) noexcept;
    /// "1000000001, ", or nothing when it cannot be read.
    std::string approvedId();
    void finishSubmission() noexcept;
    /// To a button that can be pressed next, when nobody has the focus.
    void giveFocusBack() noexcept;
    /// Sends the focus back to the control that it just left for one that must not keep it.
    void returnFocusFrom(Control& left);

    /// Wraps a handler: an error that leaves it is shown with the handler's sentence.
    std::function<void()> guarded(std::string_view sentence, void (ChargeInfo::*handler)());
    void guard(std::string_view sentence, const std::function<void()>& body) noexcept;
    void reportError(std::string_view sentence, const Error& error) noexcept;

    Desktop desktop_;
    Components& components_;
    std::unique_ptr<Form> form_;
    ChargeInfoControls controls_;
    ExpiryBoxes expiry_;
    MoneyBoxes money_;
    StateNameDisplay stateName_;
    SwipeCapture swipe_;
    /// Street, city, description, card code.
    std::array<AutoFormatTextbox, 4> formats_;
    /// Borrowed between initialisation and unload.
    ChargeComponent* charge_ = nullptr;
    int transType_ = 0;
    bool transactionApproved_ = false;
    bool submitting_ = false;
    bool releaseOwed_ = false; ///< the form was closed while a submission was under way
    std::string approvalDetail_;
    std::string dataStatus_;   ///< what the status bar says when all is well
    std::string openPayments_; ///< and what stands before it, the newest first
    /// Blank in every entry: the track of a card stays in `txtMagStripe` alone.
    std::array<char, 25> swipeRecord_{};
    bool amountTipIsOwed_ = false;  ///< a reader was still sending
    bool activationFailed_ = false; ///< and the operator has been told
    bool restoringType_ = false;    ///< the form itself selects the type's button again
};

} // namespace tollvane
