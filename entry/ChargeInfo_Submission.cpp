// The submission of an entry: validation, the one gateway operation, and what the operator is told.

#include "entry/ChargeInfo.h"
#include "entry/Raised.h"
#include "output/HelpFiles.h"
#include "platform/Text.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace tollvane {

namespace {

constexpr const char* kLineBreak = "\r\n";
constexpr const char* kBlankLine = "\r\n\r\n";

std::string codeLine(const char* label, std::int32_t code) {
    return code > 0 ? std::string(label) + "\t" + std::to_string(code) + kLineBreak : std::string();
}

std::string textLine(const char* label, const std::string& text) {
    return text.empty() ? std::string() : std::string(label) + "\t" + text + kLineBreak;
}

/// The two codes written one after the other as digits: code 2 and reason 27 give topic 227.
long helpTopic(std::int32_t responseCode, std::int32_t reasonCode) {
    return std::strtol((std::to_string(responseCode) + std::to_string(reasonCode)).c_str(), nullptr,
                       10);
}

class Hourglass {
public:
    explicit Hourglass(Form& form) : form_(form) { form_.setMousePointer(MousePointer::hourglass); }
    ~Hourglass() { form_.setMousePointer(MousePointer::standard); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;

private:
    Form& form_;
};

} // namespace

void ChargeInfo::cmdSubmit_Click() {
    if (submitting_) {
        return; // pressed again while the first press is still at work
    }
    if (transactionApproved_) {
        desktop_.messageBoxes.show({.text = "This transaction has already been authorized. "
                                            "Please enter a new transaction to continue.",
                                    .title = "Transaction Already Authorized"});
        return;
    }
    const Raised submitting(submitting_);
    const Hourglass hourglass(*form_);
    bool refused = false;
    guard("There was an error getting an approval.", [&] {
        refused = !ValidateTransaction() || !form_->isOpen();
        if (!refused) {
            EnableForm(false);
            submit();
        }
    });
    if (!refused && form_->isOpen()) {
        finishSubmission();
    }
    if (releaseOwed_) {
        guard("There was an error closing the form.", [this] { components_.ReleaseComponents(); });
    }
}

void ChargeInfo::submit() {
    std::string_view operationName;
    bool approved = false;
    try {
        approved = runOperation(operationName);
        if (approved) {
            recordApproval();
        }
    } catch (...) {
        keepInSight(operationName, approved);
        throw;
    }
    if (approved) {
        showApproval(operationName);
    } else {
        reportFailure(operationName);
    }
}

bool ChargeInfo::runOperation(std::string_view& operationName) {
    ChargeComponent charge = components_.charge();
    switch (transType_) {
    case transtype::charge:
        if (controls_.chkVoiceAuth.checked()) {
            operationName = "voice authorization capture";
            return charge.CaptureVoiceAuth(controls_.txtAuthNum.text());
        }
        operationName = "authorization";
        return charge.AuthorizeAndCapture();
    case transtype::refund:
        operationName = "refund";
        return charge.Credit(controls_.txtTransactionNumber.text());
    case transtype::voiding:
        operationName = "void";
        return charge.Void(controls_.txtTransactionNumber.text());
    default: return false;
    }
}

void ChargeInfo::reportFailure(std::string_view operationName) {
    ChargeComponent charge = components_.charge();
    const std::int32_t response = charge.ResponseCode();
    const std::int32_t reason = charge.ResponseReasonCode();
    const std::string detail =
        codeLine("Response code:", response) + codeLine("Reason code:", reason) +
        codeLine("Reason sub-code:", charge.ResponseSubCode()) + charge.ResponseReasonText();
    desktop_.messageBoxes.show(
        {.text = "The " + std::string(operationName) + " failed." + kBlankLine + detail,
         .title = "Authorization Failed",
         .helpFile = kGatewayHelp,
         .helpTopic = helpTopic(response, reason),
         .help = [this](const Message& box) { showHelpOf(box); }});
}

void ChargeInfo::recordApproval() {
    ChargeComponent charge = components_.charge();
    SetTransactionApproved(true);
    const std::string approval = charge.ApprovalCode();
    const std::string transactionId = charge.TransactionID();
    controls_.txtAuthNum.setText(approval);
    controls_.txtTransactionNumber.setText(transactionId);
    // No longer needed by anybody; the number itself stays to be seen until the next entry.
    controls_.txtMagStripe.wipeText();
    controls_.txtCardCode.wipeText();
    swipe_.forget();
    approvalDetail_ = textLine("Aproval code:", approval) +
                      textLine("Transaction ID:", transactionId) + charge.ResponseReasonText();
    WriteZendaRecord();
}

void ChargeInfo::showApproval(std::string_view operationName) {
    desktop_.messageBoxes.show({.text = "The " + std::string(operationName) + " was successful." +
                                        kBlankLine + approvalDetail_,
                                .title = "Approved"});
    if (form_->isOpen()) {
        controls_.cmdCancel.setEnabled(true);
        controls_.cmdCancel.setFocus();
    }
}

void ChargeInfo::keepInSight(std::string_view operationName, bool approved) noexcept {
    try {
        const DateTime now = desktop_.clock.now();
        const std::string what = std::string(operationName) + " of " + controls_.txtAmount.text() +
                                 " at " + zeroPadded(now.hour, 2) + ":" + zeroPadded(now.minute, 2);
        openPayments_ = (approved ? "Approved, but perhaps not recorded: " + approvedId()
                                  : std::string("See the transaction log: ")) +
                        what + "   " + openPayments_;
        ShowStatus(openPayments_ + dataStatus_);
    } catch (...) {
        // The error itself is about to be shown.
    }
}

std::string ChargeInfo::approvedId() {
    try {
        return components_.charge().TransactionID() + ", ";
    } catch (...) {
        return {}; // the log finds the payment by its time and amount, too
    }
}

void ChargeInfo::finishSubmission() noexcept {
    EnableForm(true);
    giveFocusBack();
    giveFocusBack(); // where the first try failed
}

void ChargeInfo::giveFocusBack() noexcept {
    try {
        // Switching the controls off took the focus from the button that was pressed.
        if (form_->activeControl() == nullptr) {
            (transactionApproved_ ? controls_.cmdCancel : controls_.cmdSubmit).setFocus();
        }
    } catch (...) {
        // The operator finds the focus with the mouse or Tab.
    }
}

void ChargeInfo::cmdCancel_Click() {
    form_->close();
}

} // namespace tollvane
