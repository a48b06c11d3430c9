#include "dialogs/frmOptions.h"

#include "dialogs/frmOptionsLayout.h"
#include "platform/Guard.h"

#include <string>

namespace tollvane {

namespace {

/// A check box and the setting that it shows.
struct Switch {
    std::string_view box;
    bool (AppProperties::*read)() const;
    void (AppProperties::*store)(bool);
};

// Both lists are read and stored in this order, the text format between them.
constexpr std::array kBehaviour{
    Switch{"chkInvoiceForPONumber", &AppProperties::InvoiceNumberForPONumber,
           &AppProperties::SetInvoiceNumberForPONumber},
    Switch{"chkDefaultInvoiceNumber", &AppProperties::DefaultInvoiceNumber,
           &AppProperties::SetDefaultInvoiceNumber},
    Switch{"chkShopAddrForBlank", &AppProperties::ShopAddressForBillToAddress,
           &AppProperties::SetShopAddressForBillToAddress},
    Switch{"chkShowRefundVoidWarning", &AppProperties::ShowRefundVoidWarning,
           &AppProperties::SetShowRefundVoidWarning},
};
constexpr std::array kRequired{
    Switch{"chkRBillingAddress", &AppProperties::BillToAddressRequired,
           &AppProperties::SetBillToAddressRequired},
    Switch{"chkRCardCode", &AppProperties::CardCodeRequired, &AppProperties::SetCardCodeRequired},
    Switch{"chkRInvoiceNum", &AppProperties::InvoiceNumberRequired,
           &AppProperties::SetInvoiceNumberRequired},
    Switch{"chkRPONumber", &AppProperties::PONumberRequired, &AppProperties::SetPONumberRequired},
    Switch{"chkRDescription", &AppProperties::DescriptionRequired,
           &AppProperties::SetDescriptionRequired},
};

} // namespace

frmOptions::frmOptions(const Desktop& desktop)
    : desktop_(desktop), form_(desktop.forms.create(optionsLayout())), settings_(desktop),
      cmdApply_(form_->control<Button>("cmdApply")),
      optFormat_{&form_->control<OptionButton>("optFormat", 0),
                 &form_->control<OptionButton>("optFormat", 1),
                 &form_->control<OptionButton>("optFormat", 2),
                 &form_->control<OptionButton>("optFormat", 3)} {
    LoadProperties();
    SetChanged(false);
    bindEvents();
}

void frmOptions::showModal(Form& owner) {
    form_->showModal(&owner);
}

void frmOptions::SetChanged(bool changed) {
    changed_ = changed;
    cmdApply_.setEnabled(changed);
}

void frmOptions::bindEvents() {
    const auto onClick = [this](Control& control, std::string_view sentence, auto handler) {
        control.on.click = [this, sentence, handler] {
            guarded(desktop_.messageBoxes, sentence, handler);
        };
    };
    const auto touched = [this] { SetChanged(true); };
    constexpr std::string_view kChanging = "There was an error changing the option.";
    constexpr std::string_view kClosing = "There was an error closing the options.";
    for (const Switch& entry : kBehaviour) {
        onClick(check(entry.box), kChanging, touched);
    }
    for (const Switch& entry : kRequired) {
        onClick(check(entry.box), kChanging, touched);
    }
    for (OptionButton* button : optFormat_) {
        onClick(*button, kChanging, touched);
    }
    onClick(cmdApply_, kClosing, [this] { SaveProperties(); });
    onClick(form_->control<Button>("cmdOK"), kClosing, [this] {
        if (SaveProperties()) {
            form_->close();
        }
    });
    onClick(form_->control<Button>("cmdCancel"), kClosing, [this] { form_->close(); });
}

void frmOptions::LoadProperties() {
    for (const Switch& entry : kBehaviour) {
        check(entry.box).setChecked((settings_.*entry.read)());
    }
    const std::int32_t format = settings_.FormatType();
    if (format >= 0 && format < kFormats) {
        optFormat_[static_cast<std::size_t>(format)]->select();
    }
    for (const Switch& entry : kRequired) {
        check(entry.box).setChecked((settings_.*entry.read)());
    }
}

bool frmOptions::SaveProperties() {
    if (!changed_) {
        return true;
    }
    try {
        storeProperties();
        SetChanged(false);
    } catch (...) {
        const Error error = currentError();
        // The number follows the colon without a blank here, unlike in other boxes.
        desktop_.messageBoxes.show({.text = "There was an error saving the changes.\r\n\r\nError:" +
                                            std::to_string(error.number()) + ", " +
                                            error.description(),
                                    .title = error.source() + ":SaveProperties"});
        return false;
    }
    if (onSaved) {
        onSaved();
    }
    return true;
}

void frmOptions::storeProperties() {
    for (const Switch& entry : kBehaviour) {
        (settings_.*entry.store)(check(entry.box).checked());
    }
    settings_.SetFormatType(selectedFormat());
    for (const Switch& entry : kRequired) {
        (settings_.*entry.store)(check(entry.box).checked());
    }
}

int frmOptions::selectedFormat() const {
    // With no button on, the last format counts.
    int format = 0;
    while (format < kFormats - 1 && !optFormat_[static_cast<std::size_t>(format)]->selected()) {
        ++format;
    }
    return format;
}

} // namespace tollvane
