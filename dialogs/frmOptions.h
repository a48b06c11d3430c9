#pragma once

#include "platform/Desktop.h"
#include "settings/AppProperties.h"

#include <array>
#include <functional>
#include <memory>
#include <string_view>

namespace tollvane {

/// The dialog of the program's behaviour switches. Every opening builds it anew from the settings.
class frmOptions {
public:
    /// Builds the dialog, hidden, with the stored settings in its controls.
    explicit frmOptions(const Desktop& desktop);
    frmOptions(const frmOptions&) = delete;
    frmOptions& operator=(const frmOptions&) = delete;

    /// Returns when the dialog has been closed.
    void showModal(Form& owner);
    Form& form() { return *form_; }

    /// The operator has touched a control; "Apply" is available exactly then.
    bool Changed() const { return changed_; }
    void SetChanged(bool changed);

    void LoadProperties();
    /// Stores what was changed. False after a failure, which has been shown; what was stored before
    /// it stays stored.
    bool SaveProperties();

    /// Runs after every successful save that stored something.
    std::function<void()> onSaved;

private:
    static constexpr int kFormats = 4;

    void bindEvents();
    void storeProperties();
    int selectedFormat() const;
    CheckBox& check(std::string_view name) { return form_->control<CheckBox>(name); }

    Desktop desktop_;
    std::unique_ptr<Form> form_;
    AppProperties settings_;
    Button& cmdApply_;
    std::array<OptionButton*, kFormats> optFormat_;
    bool changed_ = false;
};

} // namespace tollvane
