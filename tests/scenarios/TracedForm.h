#pragma once

#include "tests/desktop/TestForms.h"

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

namespace tollvane::test {

/// Groups of events that a trace shows.
enum Watch : unsigned {
    watchKeys = 1,
    watchFocus = 2,  ///< validate, lost-focus, got-focus
    watchValues = 4, ///< change and click
    watchForm = 8,   ///< load, activate, unload, double click
    watchPaste = 16,
    watchTimer = 32,
    watchAll = 63,
};

/// A form with one of everything that writes down every event that it gets, as text.
///
/// In the order of the table: lblFirst "&First" and txtFirst, lblSecond "&Second" and txtSecond,
/// cboList with three entries, chkBox "&Check", optKind 0 to 2 "&Alpha", "&Beta", "&Gamma", frame
/// fraBox "&Xtra" and txtThird inside it, cmdPress "&Press", cmdFree "Fr&ee" (causes no
/// validation), cmdTwin "&Twin" and cmdTwinToo "&Twin", picIcon, tmrTick (10 ms), sbrStatus with
/// the panels "STATUS" and "WHERE". Menus: mnuTools "T&ools" with mnuRun, mnuSep, mnuMore (with
/// mnuDeep); the hidden mnuPopup with mnuPick and mnuOther.
class TracedForm {
public:
    struct Look {
        std::string name = "frmTraced";
        std::string defaultButton{};
        std::string cancelButton{};
        bool resizable = false;
    };

    explicit TracedForm(Forms& forms) : TracedForm(forms, Look()) {}
    TracedForm(Forms& forms, const Look& look);
    TracedForm(const TracedForm&) = delete;
    TracedForm& operator=(const TracedForm&) = delete;

    /// Shows the form and forgets what that traced.
    void show();
    Form& form() { return *form_; }
    template <class Kind>
    Kind& get(std::string_view name, int index = -1) {
        return form_->control<Kind>(name, index);
    }
    TextBox& box(std::string_view name) { return get<TextBox>(name); }
    /// Name of the active control ("optKind1" in the array), or "nothing".
    std::string active();

    /// Events to write down from now on; starts afresh.
    void watch(unsigned groups);
    /// What happened since the last call: "txtFirst_KeyDown(65,0) txtFirst_Change(a)".
    std::string take();

    /// Runs inside an event, after it was written down.
    std::map<std::string, std::function<void()>> during;
    /// Changes a key or text inside its event: "txtFirst_KeyPress", "Form_KeyDown".
    std::map<std::string, std::function<void(int& code)>> changeKey;
    std::map<std::string, std::function<void(std::string& text)>> changePaste;
    /// Controls whose validation refuses to let the focus go.
    std::set<std::string> refusing;

private:
    void bindForm();
    void bind(Control& control, const std::string& name);
    void bindKeys(Control& control, const std::string& name);
    void bindFocus(Control& control, const std::string& name);
    void note(Watch group, const std::string& event, const std::string& details = {});
    void noteKey(const std::string& event, const std::string& details, int& code);

    std::unique_ptr<Form> form_;
    unsigned groups_ = watchAll;
    std::string trace_;
};

} // namespace tollvane::test
