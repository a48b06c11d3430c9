#pragma once

#include "controls/AutoFormatTextbox.h"
#include "controls/StateNameDisplay.h"
#include "platform/Desktop.h"
#include "settings/AppProperties.h"

#include <array>
#include <functional>
#include <memory>
#include <string_view>

namespace tollvane {

/// The dialog of the shop's name, address, phone and location number, as receipts print them.
class frmCompanyInfo {
public:
    /// Builds the dialog, hidden, with the stored settings in its fields. Raises 380 when the
    /// stored state is none of the list.
    explicit frmCompanyInfo(const Desktop& desktop);
    frmCompanyInfo(const frmCompanyInfo&) = delete;
    frmCompanyInfo& operator=(const frmCompanyInfo&) = delete;

    /// Returns when the dialog has been closed.
    void showModal(Form& owner);
    Form& form() { return *form_; }

    /// There are unsaved changes; "Apply" is available exactly then. A changed zip or state alone
    /// does not count.
    bool Dirty() const { return dirty_; }
    void SetDirty(bool dirty);

    void InitControls();
    /// Stores the fields when there are unsaved changes. Returns true; raises what failed.
    bool SaveChanges();

private:
    static constexpr std::size_t kTextFields = 7;

    TextBox& field(std::string_view name) { return form_->control<TextBox>(name); }
    std::function<void()> handler(std::string_view sentence, void (frmCompanyInfo::*body)());
    void formatFields();
    void bindEvents();
    void bindButtons();
    void storeFields();

    void txtCompanyPhone_Validate(bool& cancel);
    void txtCompanyZip_Validate(bool& cancel);
    void cmdOK_Click();
    void cmdApply_Click();
    void cmdCancel_Click();

    Desktop desktop_;
    std::unique_ptr<Form> form_;
    AppProperties settings_;
    Button& cmdApply_;
    ComboBox& cboState_;
    StateNameDisplay stateName_;
    std::array<std::unique_ptr<AutoFormatTextbox>, kTextFields> formats_;
    bool dirty_ = false;
};

} // namespace tollvane
