// The transaction form's life: handlers are bound, the form initialises, loads, activates, unloads.

#include "app/CommonRoutines.h"
#include "dialogs/frmCompanyInfo.h"
#include "entry/ChargeInfo.h"
#include "entry/ChargeInfoLayout.h"
#include "platform/Text.h"
#include "settings/AppProperties.h"
#include "settings/StateList.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace tollvane {

namespace {

constexpr const char* kPositionFile = "CARDAUTH.INI";
constexpr const char* kPositionSection = "Form";

constexpr std::string_view kCaption = "Credit Card Charge/Credit";
constexpr std::string_view kTestModeMark = "   ** TEST MODE **";

/// One coordinate of the window: the INI file's where it has one, else the stored one. A file can
/// hold any number; one that no coordinate reaches becomes the farthest.
int coordinate(const Desktop& desktop, const char* key, int stored) {
    const std::string text = ReadIniValue(desktop.files, kPositionSection, key, kPositionFile);
    if (text == kIniValueNotFound) {
        return stored;
    }
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<double>(numberFromText(text), Limits::min(), Limits::max()));
}

} // namespace

void ChargeInfo::bindEvents() {
    bindFormEvents();
    bindEntryEvents();
    bindFieldEvents();
    bindButtonEvents();
    bindMenuEvents();
}

void ChargeInfo::bindFormEvents() {
    form_->on.load = guarded("There was an error loading the form.", &ChargeInfo::Form_Load);
    form_->on.activate = [this] { activated(); };
    form_->on.unload = guarded("There was an error closing the form.", &ChargeInfo::Form_Unload);
    form_->on.doubleClick =
        guarded("There was an error painting the form.", &ChargeInfo::Form_DblClick);
    form_->on.keyPress = [this](int& keyAscii) {
        guard("There was an error reading the keyboard.", [&] { Form_KeyPress(keyAscii); });
    };
    form_->on.keyDown = [this](int& keyCode, int shift) {
        guard("There was an error reading the keyboard.", [&] { Form_KeyDown(keyCode, shift); });
    };
}

void ChargeInfo::bindEntryEvents() {
    for (int type = 0; type < transtype::count; ++type) {
        controls_.optTransType[static_cast<std::size_t>(type)]->on.click = [this, type] {
            guard("There was an error changing the transaction type.",
                  [&] { optTransType_Click(type); });
        };
    }
    controls_.chkTaxExempt.on.click = guarded("There was an error setting the tax exempt status.",
                                              &ChargeInfo::chkTaxExempt_Click);
    controls_.chkVoiceAuth.on.click =
        guarded("There was an error setting the voice authorization status.",
                &ChargeInfo::chkVoiceAuth_Click);
    controls_.cboExpMonth.on.click = [this] {
        guard("There was an error setting the expiration date.",
              [&] { expiry_.cboExpMonth_Click(components_.charge()); });
    };
    controls_.cboExpYear.on.click = [this] {
        guard("There was an error setting the expiration date.",
              [&] { expiry_.cboExpYear_Click(components_.charge()); });
    };
    controls_.txtCardNumber.on.change =
        guarded("There was an error changing the card number.", &ChargeInfo::txtCardNumber_Change);
    controls_.txtCardNumber.on.validate = [this](bool& cancel) {
        guard("There was an error validating the credit card number.",
              [&] { txtCardNumber_Validate(cancel); });
    };
}

void ChargeInfo::bindButtonEvents() {
    controls_.cmdSubmit.on.click =
        guarded("There was an error getting an approval.", &ChargeInfo::cmdSubmit_Click);
    controls_.cmdCancel.on.click =
        guarded("There was an error closing the form.", &ChargeInfo::cmdCancel_Click);
    for (Button* button : {&controls_.cmdSubmit, &controls_.cmdCancel}) {
        button->on.lostFocus = [this, button] {
            guard("There was an error moving the focus.", [&] { returnFocusFrom(*button); });
        };
    }
}

void ChargeInfo::Form_Initialize() {
    // Each step stands alone: one that fails is reported and leaves the others to do their part.
    constexpr const char* kPreparing = "There was an error preparing the entry fields.";
    guard(kPreparing, [this] {
        controls_.optTransType[transtype::charge]->select();
        charge_ = &components_.charge();
        controls_.cmdModify.setTabStop(false);
        SetDigitsOnly(controls_.txtCardNumber);
    });
    guard(kPreparing, [this] { fillStateList(desktop_.program, controls_.cboBillToState); });
    guard(kPreparing, [this] { setMaximumLengths(); });
    guard("There was an error clearing the form.", [this] { ClearText(); });
    guard("There was an error filling the expiration dates.",
          [this] { expiry_.fill(components_.charge()); });
    guard("There was an error setting the text formats.", [this] { ApplyAutoFormat(); });
    form_->setKeyPreview(true);
    guard("There was an error showing the data path.", [this] { showDataPath(); });
    guard("There was an error showing the company information.", [this] { showCompanyAddress(); });
    guard("There was an error preparing the menus.", [this] { offerLogViewer(); });
}

void ChargeInfo::setMaximumLengths() {
    const auto lengthOf = [this](std::string_view field) {
        return components_.charge().TransactionField(field).maximumLength();
    };
    // The blank between the two names gets no room of its own.
    controls_.txtCardName.setMaxLength(lengthOf(gatewayfield::firstName) +
                                       lengthOf(gatewayfield::lastName));
    const std::array<std::pair<TextBox*, std::string_view>, 14> boxes{{
        {&controls_.txtCardNumber, gatewayfield::cardNumber},
        {&controls_.txtCardCode, gatewayfield::cardCode},
        {&controls_.txtAmount, gatewayfield::amount},
        {&controls_.txtZipCode, gatewayfield::zip},
        {&controls_.txtBillToZip, gatewayfield::zip},
        {&controls_.txtTaxAmount, gatewayfield::tax},
        {&controls_.txtAuthNum, gatewayfield::authorisationCode},
        {&controls_.txtTransactionNumber, gatewayfield::transactionId},
        {&controls_.txtBillToStreet, gatewayfield::address},
        {&controls_.txtBillToCity, gatewayfield::city},
        {&controls_.txtEMail, gatewayfield::email},
        {&controls_.txtDescription, gatewayfield::description},
        {&controls_.txtInvoiceNumber, gatewayfield::invoiceNumber},
        {&controls_.txtPONumber, gatewayfield::purchaseOrderNumber},
    }};
    for (const auto& [box, field] : boxes) {
        box->setMaxLength(lengthOf(field));
    }
}

void ChargeInfo::showDataPath() {
    Environment& environment = components_.environment();
    dataStatus_ = "Data: " + CapitalizePath(environment.Data_Path());
    dataStatus_ += "   Location: " + environment.Location(); // asked for second
    ShowStatus(dataStatus_);
}

void ChargeInfo::showCompanyAddress() {
    controls_.lblCompanyInfo.setCaption(withoutAccessKeys(CompanyAddressBlock()));
}

void ChargeInfo::ShowCompanyInfo() {
    frmCompanyInfo dialog(desktop_);
    dialog.showModal(*form_);
    showCompanyAddress();
}

void ChargeInfo::Form_Load() {
    const WindowPosition stored = AppProperties(desktop_).GetWindowPosition();
    const int left = coordinate(desktop_, "Left", stored.X);
    const int top = coordinate(desktop_, "Top", stored.Y);
    if (left > desktop_.screen.widthInTwips() || top > desktop_.screen.heightInTwips()) {
        form_->move(0, 0);
    } else {
        form_->move(left, top);
    }
}

void ChargeInfo::activated() noexcept {
    try {
        Form_Activate();
        activationFailed_ = false;
    } catch (...) {
        // Closing the box activates the form again: told every time, the failure would never end.
        if (!std::exchange(activationFailed_, true)) {
            reportError("There was an error activating the form.", currentError());
        }
    }
}

void ChargeInfo::Form_Activate() {
    if (charge_ == nullptr) {
        return;
    }
    form_->setCaption(std::string(kCaption) +
                      (charge_->TestMode() ? std::string(kTestModeMark) : std::string()));
}

void ChargeInfo::Form_Unload() {
    guard("There was an error storing the position of the form.", [this] {
        if (!components_.skipPosition && form_->windowState() == WindowState::normal) {
            AppProperties(desktop_).SaveWindowPosition(form_->left(), form_->top());
        }
    });
    charge_ = nullptr;
    for (TextBox* secret : {&controls_.txtCardNumber, &controls_.txtCardCode,
                            &controls_.txtMagStripe, &controls_.txtKbBuffer}) {
        guard("There was an error clearing the card data.", [secret] { secret->wipeText(); });
    }
    // What the gateway approves in the meantime still has to be recorded.
    releaseOwed_ = submitting_;
    if (!releaseOwed_) {
        components_.ReleaseComponents();
    }
}

void ChargeInfo::returnFocusFrom(Control& left) {
    const Control* next = form_->activeControl();
    if (next != nullptr && next->tag() == kNoFocus) {
        left.setFocus();
    }
}

} // namespace tollvane
