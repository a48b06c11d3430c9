#include "platform/win32/ControlProperties.h"

#include "platform/Error.h"

#include <windows.h>

namespace tollvane::win32 {

namespace {

bool takesKeys(ControlKind kind) {
    switch (kind) {
    case ControlKind::textBox:
    case ControlKind::comboBox:
    case ControlKind::checkBox:
    case ControlKind::optionButton:
    case ControlKind::button: return true;
    default: return false;
    }
}

bool isWindow(ControlKind kind) {
    return kind != ControlKind::timer && kind != ControlKind::menuItem;
}

} // namespace

bool offers(ControlKind kind, Property property) {
    switch (property) {
    case Property::visible: return kind != ControlKind::timer;
    case Property::tabStop:
    case Property::focus: return takesKeys(kind);
    case Property::locked: return kind == ControlKind::textBox || kind == ControlKind::comboBox;
    case Property::toolTip:
    case Property::bounds: return isWindow(kind);
    case Property::foreColour:
    case Property::backColour:
        return isWindow(kind) && kind != ControlKind::button && kind != ControlKind::statusBar;
    }
    return false;
}

void demand(ControlKind kind, Property property, const std::string& controlName) {
    if (!offers(kind, property)) {
        throw Error(errornumber::memberNotFound, controlName,
                    "Object doesn't support this property or method");
    }
}

unsigned long systemColour(Colour colour) {
    if (!colour.isSystem()) {
        return colour.value();
    }
    switch (colour.system()) {
    case Colour::System::windowText: return GetSysColor(COLOR_WINDOWTEXT);
    case Colour::System::window: return GetSysColor(COLOR_WINDOW);
    case Colour::System::greyText: return GetSysColor(COLOR_GRAYTEXT);
    case Colour::System::buttonFace: return GetSysColor(COLOR_BTNFACE);
    case Colour::System::buttonText: return GetSysColor(COLOR_BTNTEXT);
    }
    return 0;
}

Colour defaultForeColour(ControlKind kind) {
    const bool field = kind == ControlKind::textBox || kind == ControlKind::comboBox;
    return field ? Colour::System::windowText : Colour::System::buttonText;
}

Colour defaultBackColour(ControlKind kind) {
    const bool field = kind == ControlKind::textBox || kind == ControlKind::comboBox;
    return field ? Colour::System::window : Colour::System::buttonFace;
}

} // namespace tollvane::win32
