#include "tests/desktop/memory/ControlCore.h"

#include "tests/desktop/memory/MemoryForm.h"

namespace tollvane::test {

namespace {

bool isInput(ControlKind kind) {
    return kind == ControlKind::textBox || kind == ControlKind::comboBox ||
           kind == ControlKind::checkBox || kind == ControlKind::optionButton ||
           kind == ControlKind::button;
}

} // namespace

bool has(ControlKind kind, Property property) {
    const bool window = kind != ControlKind::timer && kind != ControlKind::menuItem;
    switch (property) {
    case Property::visible: return kind != ControlKind::timer;
    case Property::tabStop:
    case Property::focus: return isInput(kind);
    case Property::locked: return kind == ControlKind::textBox || kind == ControlKind::comboBox;
    case Property::toolTip:
    case Property::bounds: return window;
    case Property::foreColour:
    case Property::backColour:
        return window && kind != ControlKind::button && kind != ControlKind::statusBar;
    }
    return false;
}

ControlCore::ControlCore(MemoryForm& form, const ControlDescription& description)
    : owner(form), name(description.name), index(description.index), kind(description.kind),
      visible(description.visible), causesValidation(description.causesValidation),
      follow(description.follow), tag(description.tag), toolTip(description.toolTip),
      bounds(description.at) {
    if (kind == ControlKind::textBox || kind == ControlKind::comboBox) {
        foreColour = Colour::System::windowText;
        backColour = Colour::System::window;
    }
}

void ControlCore::require(Property property) const {
    if (!has(kind, property)) {
        throw Error(errornumber::memberNotFound, name,
                    "Object doesn't support this property or method");
    }
}

void ControlCore::changing(const char* what) const {
    owner.host().changing(name + "." + what);
}

void ControlCore::run(const char* event, const std::function<void()>& body) {
    owner.runHandler(name + "_" + event, body);
}

void ControlCore::setEnabled(bool on) {
    changing("setEnabled");
    const bool wasOn = std::exchange(enabled, on);
    if (wasOn && !on) {
        owner.becameUnusable(*this);
    }
    enabledChanged();
}

void ControlCore::setVisible(bool on) {
    require(Property::visible);
    changing("setVisible");
    const bool wasOn = std::exchange(visible, on);
    if (wasOn && !on) {
        owner.becameUnusable(*this);
    }
}

void ControlCore::setFocus() {
    require(Property::focus);
    changing("setFocus");
    if (!usable()) {
        throw Error(errornumber::invalidProcedureCall, name, "Invalid procedure call or argument");
    }
    owner.changeFocus(*this);
}

bool ControlCore::isActive() const {
    return owner.activeCore() == this;
}

} // namespace tollvane::test
