#include "tests/scenarios/TracedForm.h"

#include <utility>

namespace tollvane::test {

namespace {

using enum ControlKind;

constexpr ControlDescription kControls[] = {
    {.kind = label, .name = "lblFirst", .caption = "&First", .at = {8, 8, 60, 20}},
    {.kind = textBox,
     .name = "txtFirst",
     .at = {80, 8, 120, 22},
     .toolTip = "The first",
     .tag = "Tagged"},
    {.kind = label, .name = "lblSecond", .caption = "&Second", .at = {8, 40, 60, 20}},
    {.kind = textBox, .name = "txtSecond", .caption = "old", .at = {80, 40, 120, 22}},
    {.kind = comboBox, .name = "cboList", .at = {80, 72, 120, 22}},
    {.kind = checkBox, .name = "chkBox", .caption = "&Check", .at = {80, 104, 120, 20}},
    {.kind = optionButton,
     .name = "optKind",
     .index = 0,
     .caption = "&Alpha",
     .at = {8, 136, 70, 20}},
    {.kind = optionButton,
     .name = "optKind",
     .index = 1,
     .caption = "&Beta",
     .at = {88, 136, 70, 20}},
    {.kind = optionButton,
     .name = "optKind",
     .index = 2,
     .caption = "&Gamma",
     .at = {168, 136, 70, 20}},
    {.kind = frame, .name = "fraBox", .caption = "&Xtra", .at = {8, 164, 240, 52}},
    {.kind = textBox, .name = "txtThird", .at = {20, 184, 120, 22}, .follow = {.growRight = true}},
    {.kind = button,
     .name = "cmdPress",
     .caption = "&Press",
     .at = {8, 224, 70, 26},
     .follow = {.moveRight = true, .moveDown = true}},
    {.kind = button,
     .name = "cmdFree",
     .caption = "Fr&ee",
     .at = {88, 224, 70, 26},
     .causesValidation = false},
    {.kind = button, .name = "cmdTwin", .caption = "&Twin", .at = {168, 224, 70, 26}},
    {.kind = button, .name = "cmdTwinToo", .caption = "&Twin", .at = {248, 224, 70, 26}},
    {.kind = picture, .name = "picIcon", .at = {260, 8, 32, 32}},
    {.kind = timer, .name = "tmrTick", .interval = 10},
    {.kind = statusBar, .name = "sbrStatus", .at = {0, 262, 340, 22}},
};

constexpr MenuDescription kMenus[] = {
    {0, "mnuTools", "T&ools"}, {1, "mnuRun", "&Run"},     {1, "mnuSep", "-"},
    {1, "mnuMore", "&More"},   {2, "mnuDeep", "&Deep"},   {0, "mnuPopup", "Popup", false},
    {1, "mnuPick", "&Pick"},   {1, "mnuOther", "&Other"},
};

constexpr PanelDescription kPanels[] = {{"STATUS", 200}, {"WHERE", 0}};

std::string inQuotes(const std::string& text) {
    return "'" + text + "'";
}

} // namespace

TracedForm::TracedForm(Forms& forms, const Look& look) {
    FormDescription description;
    description.name = look.name;
    description.caption = "Traced";
    description.width = 340;
    description.height = 284;
    description.controls = kControls;
    description.menus = kMenus;
    description.panels = kPanels;
    description.defaultButton = look.defaultButton;
    description.cancelButton = look.cancelButton;
    description.resizable = look.resizable;
    form_ = forms.create(description);
    bindForm();
    for (Control* control : form_->controls()) {
        bind(*control,
             control->name() + (control->index() < 0 ? "" : std::to_string(control->index())));
    }
    auto& list = get<ComboBox>("cboList");
    list.addItem("ant", 10);
    list.addItem("bee", 20);
    list.addItem("cat", 30);
}

void TracedForm::show() {
    form_->show();
    trace_.clear();
}

std::string TracedForm::active() {
    Control* control = form_->activeControl();
    if (control == nullptr) {
        return "nothing";
    }
    return control->name() + (control->index() < 0 ? "" : std::to_string(control->index()));
}

void TracedForm::watch(unsigned groups) {
    groups_ = groups;
    trace_.clear();
}

std::string TracedForm::take() {
    return std::exchange(trace_, {});
}

void TracedForm::note(Watch group, const std::string& event, const std::string& details) {
    if ((groups_ & group) != 0) {
        trace_ += (trace_.empty() ? "" : " ") + event + details;
    }
    const auto found = during.find(event);
    if (found != during.end()) {
        const auto body = found->second;
        body();
    }
}

void TracedForm::noteKey(const std::string& event, const std::string& details, int& code) {
    note(watchKeys, event, details);
    const auto found = changeKey.find(event);
    if (found != changeKey.end()) {
        found->second(code);
    }
}

void TracedForm::bindForm() {
    FormEvents& on = form_->on;
    on.load = [this] { note(watchForm, "Form_Load"); };
    on.activate = [this] { note(watchForm, "Form_Activate"); };
    on.unload = [this] { note(watchForm, "Form_Unload"); };
    on.doubleClick = [this] { note(watchForm, "Form_DblClick"); };
    on.keyDown = [this](int& code, int shift) {
        noteKey("Form_KeyDown", "(" + std::to_string(code) + "," + std::to_string(shift) + ")",
                code);
    };
    on.keyPress = [this](int& ascii) {
        noteKey("Form_KeyPress", "(" + std::to_string(ascii) + ")", ascii);
    };
}

void TracedForm::bind(Control& control, const std::string& name) {
    bindKeys(control, name);
    bindFocus(control, name);
    control.on.click = [this, name] { note(watchValues, name + "_Click"); };
    if (auto* box = dynamic_cast<TextBox*>(&control)) {
        control.on.change = [this, name, box] {
            note(watchValues, name + "_Change", "(" + inQuotes(box->text()) + ")");
        };
    }
    control.on.timer = [this, name] { note(watchTimer, name + "_Timer"); };
    control.on.paste = [this, name](std::string& text) {
        note(watchPaste, name + "_Paste", "(" + inQuotes(text) + ")");
        const auto found = changePaste.find(name + "_Paste");
        if (found != changePaste.end()) {
            found->second(text);
        }
    };
}

void TracedForm::bindKeys(Control& control, const std::string& name) {
    control.on.keyDown = [this, name](int& code, int shift) {
        noteKey(name + "_KeyDown", "(" + std::to_string(code) + "," + std::to_string(shift) + ")",
                code);
    };
    control.on.keyPress = [this, name](int& ascii) {
        noteKey(name + "_KeyPress", "(" + std::to_string(ascii) + ")", ascii);
    };
}

void TracedForm::bindFocus(Control& control, const std::string& name) {
    control.on.gotFocus = [this, name] { note(watchFocus, name + "_GotFocus"); };
    control.on.lostFocus = [this, name] {
        note(watchFocus, name + "_LostFocus", "(to " + active() + ")");
    };
    control.on.validate = [this, name](bool& cancel) {
        note(watchFocus, name + "_Validate", "(in " + active() + ")");
        cancel = refusing.count(name) != 0;
    };
}

} // namespace tollvane::test
