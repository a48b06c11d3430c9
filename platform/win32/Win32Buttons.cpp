#include "platform/win32/Win32Buttons.h"

#include <uxtheme.h>

namespace tollvane::win32 {

namespace {

/// A themed button paints its text in the theme's colour: one with a colour of its own is painted
/// without theme.
void followColour(HWND window, bool ownColour) {
    SetWindowTheme(window, ownColour ? L"" : nullptr, ownColour ? L"" : nullptr);
}

} // namespace

Win32Button::Win32Button(FormCore& form, const ControlDescription& description)
    : PressableOf(form, description) {
    const bool byEnter = !form.defaultButton.empty() && form.defaultButton == controlName();
    createWindow("BUTTON", captionText().c_str(),
                 WS_TABSTOP | (byEnter ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON));
}

void Win32Button::press() {
    raise(on.click);
}

Win32CheckBox::Win32CheckBox(FormCore& form, const ControlDescription& description)
    : PressableOf(form, description) {
    createWindow("BUTTON", captionText().c_str(), WS_TABSTOP | BS_CHECKBOX);
}

void Win32CheckBox::setChecked(bool checked) {
    if (checked_ != checked) {
        checked_ = checked;
        send(BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED);
        raise(on.click);
    }
}

void Win32CheckBox::colourChanged() {
    followColour(window(), fore_ != defaultForeColour(ControlKind::checkBox));
    PressableOf::colourChanged();
}

Win32OptionButton::Win32OptionButton(FormCore& form, const ControlDescription& description)
    : PressableOf(form, description) {
    createWindow("BUTTON", captionText().c_str(),
                 BS_RADIOBUTTON | (arrayIndex() <= 0 ? WS_GROUP | WS_TABSTOP : 0));
}

void Win32OptionButton::mark(bool selected) {
    selected_ = selected;
    send(BM_SETCHECK, selected ? BST_CHECKED : BST_UNCHECKED);
}

void Win32OptionButton::select() {
    if (selected_) {
        return;
    }
    for (const auto& control : form().controls()) {
        auto* const member = dynamic_cast<Win32OptionButton*>(control.get());
        if (member && member->selected_ && member->controlName() == controlName()) {
            member->mark(false);
        }
    }
    mark(true);
    raise(on.click);
}

void Win32OptionButton::press() {
    selected_ ? raise(on.click) : select();
}

void Win32OptionButton::colourChanged() {
    followColour(window(), fore_ != defaultForeColour(ControlKind::optionButton));
    PressableOf::colourChanged();
}

} // namespace tollvane::win32
