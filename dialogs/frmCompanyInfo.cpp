#include "dialogs/frmCompanyInfo.h"

#include "app/CommonRoutines.h"
#include "dialogs/PatternText.h"
#include "dialogs/frmCompanyInfoLayout.h"
#include "platform/Guard.h"
#include "platform/NumberText.h"
#include "platform/Text.h"
#include "settings/StateList.h"

#include <cmath>
#include <limits>
#include <string>

namespace tollvane {

namespace {

constexpr std::array<std::string_view, 7> kFormattedFields{
    "txtCompanyName", "txtCompanyStreet", "txtCompanyAddAddr", "txtCompanyCity",
    "txtCompanyZip",  "txtCompanyPhone",  "txtLocation"};

// A change of the zip or the state is not among them.
constexpr std::array<std::string_view, 6> kFieldsThatCount{"txtCompanyName",    "txtCompanyStreet",
                                                           "txtCompanyAddAddr", "txtCompanyCity",
                                                           "txtCompanyPhone",   "txtLocation"};

constexpr std::string_view kClosing = "There was an error closing the company information.";
constexpr std::string_view kSaving = "There was an error saving the company information.";

/// The pattern for a phone number of so many characters; empty when none has that many.
std::string_view phonePattern(std::size_t length) {
    constexpr std::size_t kLocal = 7;
    constexpr std::size_t kNational = 10;
    if (length == kLocal) {
        return "###-####";
    }
    if (length == kNational) {
        return "(###) ###-####";
    }
    return length > kNational ? "(###) ###-#### Ext. ##########" : std::string_view();
}

std::int32_t wholeNumber(const std::string& text) {
    const double number = std::nearbyint(numberFromText(text));
    if (std::abs(number) > std::numeric_limits<std::int32_t>::max()) {
        raiseOverflow();
    }
    return static_cast<std::int32_t>(number);
}

} // namespace

frmCompanyInfo::frmCompanyInfo(const Desktop& desktop)
    : desktop_(desktop), form_(desktop.forms.create(companyInfoLayout())), settings_(desktop),
      cmdApply_(form_->control<Button>("cmdApply")),
      cboState_(form_->control<ComboBox>("cboState")),
      stateName_(desktop_.program, desktop_.messageBoxes, cboState_,
                 form_->control<Label>("lblStateName"), form_->control<Timer>("tmrDisplay")) {
    formatFields();
    InitControls();
    SetDirty(false);
    bindEvents();
    bindButtons();
}

void frmCompanyInfo::showModal(Form& owner) {
    form_->showModal(&owner);
}

void frmCompanyInfo::SetDirty(bool dirty) {
    dirty_ = dirty;
    cmdApply_.setEnabled(dirty);
}

void frmCompanyInfo::formatFields() {
    const std::int32_t format = settings_.FormatType();
    for (std::size_t i = 0; i < kFormattedFields.size(); ++i) {
        formats_[i] = std::make_unique<AutoFormatTextbox>(desktop_.locale);
        formats_[i]->SetTextBox(field(kFormattedFields[i]));
        formats_[i]->SetFormatType(format);
    }
}

void frmCompanyInfo::InitControls() {
    fillStateList(desktop_.program, cboState_);
    field("txtCompanyName").setText(settings_.CompanyName());
    field("txtCompanyStreet").setText(settings_.CompanyStreet());
    field("txtCompanyAddAddr").setText(settings_.CompanyAdditionalAddress());
    field("txtCompanyCity").setText(settings_.CompanyCity());
    field("txtCompanyZip").setText(settings_.CompanyZip());
    field("txtCompanyPhone").setText(settings_.CompanyPhone());
    field("txtLocation").setText(std::to_string(settings_.CompanyLocation()));
    selectState(cboState_, settings_.CompanyState());
}

std::function<void()> frmCompanyInfo::handler(std::string_view sentence,
                                              void (frmCompanyInfo::*body)()) {
    return [this, sentence, body] {
        guarded(desktop_.messageBoxes, sentence, [this, body] { (this->*body)(); });
    };
}

void frmCompanyInfo::bindEvents() {
    for (const std::string_view name : kFieldsThatCount) {
        field(name).on.change = [this] {
            guarded(desktop_.messageBoxes, "There was an error changing the field.",
                    [this] { SetDirty(true); });
        };
    }
    field("txtCompanyPhone").on.validate = [this](bool& cancel) {
        guarded(desktop_.messageBoxes, "There was an error checking the phone number.",
                [&] { txtCompanyPhone_Validate(cancel); });
    };
    field("txtCompanyZip").on.validate = [this](bool& cancel) {
        guarded(desktop_.messageBoxes, "There was an error checking the zip code.",
                [&] { txtCompanyZip_Validate(cancel); });
    };
    const auto hideStateName = [this] {
        guarded(desktop_.messageBoxes, "There was an error hiding the state name.",
                [this] { stateName_.hide(); });
    };
    cboState_.on.click = [this] { stateName_.show(); };
    cboState_.on.lostFocus = hideStateName;
    form_->control<Timer>("tmrDisplay").on.timer = hideStateName;
}

void frmCompanyInfo::bindButtons() {
    cmdApply_.on.click = handler(kSaving, &frmCompanyInfo::cmdApply_Click);
    form_->control<Button>("cmdOK").on.click = handler(kSaving, &frmCompanyInfo::cmdOK_Click);
    form_->control<Button>("cmdCancel").on.click =
        handler(kClosing, &frmCompanyInfo::cmdCancel_Click);
}

void frmCompanyInfo::txtCompanyPhone_Validate(bool& cancel) {
    TextBox& box = field("txtCompanyPhone");
    const std::string text = box.text();
    if (text.empty()) {
        return;
    }
    const std::string_view pattern = phonePattern(text.size());
    if (pattern.empty()) {
        desktop_.messageBoxes.show({.text = "The phone number appears to be incorrect.\r\n\r\n"
                                            "Please correct the phone number to continue.",
                                    .title = "Incorrect Phone Number"});
        cancel = true;
        return;
    }
    box.setText(patternText(text, pattern));
}

void frmCompanyInfo::txtCompanyZip_Validate(bool& cancel) {
    constexpr std::size_t kShort = 5;
    constexpr std::size_t kLong = 9;
    TextBox& box = field("txtCompanyZip");
    const std::string text = box.text();
    if (text.empty() || text.size() == kShort) {
        return;
    }
    if (text.size() != kLong) {
        desktop_.messageBoxes.show({.text = "The zip code appears to be incorrect.\r\n\r\n"
                                            "Correct the zip code to continue.",
                                    .title = "Incorrect Zip Code"});
        cancel = true;
        return;
    }
    box.setText(patternText(text, "#####-####"));
}

bool frmCompanyInfo::SaveChanges() {
    if (dirty_) {
        trailed("SaveChanges", [this] {
            storeFields();
            SetDirty(false);
        });
    }
    return true;
}

void frmCompanyInfo::storeFields() {
    const auto text = [this](std::string_view name) { return trimmed(field(name).text()); };
    settings_.SetCompanyName(text("txtCompanyName"));
    settings_.SetCompanyStreet(text("txtCompanyStreet"));
    settings_.SetCompanyAdditionalAddress(text("txtCompanyAddAddr"));
    settings_.SetCompanyCity(text("txtCompanyCity"));
    settings_.SetCompanyState(cboState_.text());
    settings_.SetCompanyZip(text("txtCompanyZip"));
    settings_.SetCompanyPhone(text("txtCompanyPhone"));
    settings_.SetCompanyLocation(wholeNumber(field("txtLocation").text()));
}

void frmCompanyInfo::cmdApply_Click() {
    SaveChanges();
}

void frmCompanyInfo::cmdOK_Click() {
    if (SaveChanges()) {
        form_->close();
        return;
    }
    desktop_.messageBoxes.show({.text = "There were errors saving the changes.\r\n\r\n"
                                        "One or more changes may have been lost.",
                                .title = "Error Saving Settings"});
}

void frmCompanyInfo::cmdCancel_Click() {
    form_->close();
}

} // namespace tollvane
