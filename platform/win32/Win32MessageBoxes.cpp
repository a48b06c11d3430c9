#include "platform/win32/Win32MessageBoxes.h"

#include "platform/win32/FormCore.h"
#include "platform/win32/HelpButton.h"
#include "platform/win32/SystemText.h"
#include "platform/win32/Ui.h"

namespace tollvane::win32 {

namespace {

UINT iconOf(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::none: return 0;
    case MessageIcon::information: return MB_ICONINFORMATION;
    case MessageIcon::question: return MB_ICONQUESTION;
    case MessageIcon::exclamation: return MB_ICONEXCLAMATION;
    }
    return 0;
}

UINT styleOf(const Message& message) {
    return iconOf(message.icon) | (message.buttons == MessageButtons::yesNo ? MB_YESNO : MB_OK) |
           (message.defaultButton == 2 ? MB_DEFBUTTON2 : MB_DEFBUTTON1) |
           (message.helpFile.empty() ? 0U : static_cast<UINT>(MB_HELP));
}

MessageAnswer answerOf(int pressed, MessageButtons buttons) {
    if (buttons == MessageButtons::ok) {
        return MessageAnswer::ok;
    }
    return pressed == IDYES ? MessageAnswer::yes : MessageAnswer::no;
}

/// The arrow pointer while a box is open, and what was there before afterwards.
class ArrowPointer {
public:
    ArrowPointer() : before_(SetCursor(LoadCursorA(nullptr, IDC_ARROW))) {}
    ArrowPointer(const ArrowPointer&) = delete;
    ArrowPointer& operator=(const ArrowPointer&) = delete;
    ~ArrowPointer() { SetCursor(before_); }

private:
    HCURSOR before_;
};

/// What a new box stands on: the form in front, or the box that is open on it.
HWND ownerOf(const Ui& ui) {
    const FormCore* const form = ui.formInFront();
    if (!form) {
        return nullptr;
    }
    return ui.openBox() ? GetLastActivePopup(form->window()) : form->window();
}

/// Makes the box known to the forms for as long as it is open.
class OpenBox {
public:
    OpenBox(Ui& ui, const Message& box) : ui_(ui), before_(ui.setOpenBox(&box)) {}
    OpenBox(const OpenBox&) = delete;
    OpenBox& operator=(const OpenBox&) = delete;
    ~OpenBox() { ui_.setOpenBox(before_); }

private:
    Ui& ui_;
    const Message* before_;
};

} // namespace

MessageAnswer Win32MessageBoxes::show(const Message& message) {
    const HWND owner = ownerOf(ui_);
    const std::string title = message.title.empty() ? program_.productName() : message.title;
    const OpenBox open(ui_, message);
    const HelpButton help(ui_, message);
    const ArrowPointer arrow;
    const int pressed = MessageBoxExA(
        owner, message.text.c_str(), title.c_str(),
        styleOf(message) | (owner ? 0U : static_cast<UINT>(MB_TASKMODAL)), kBoxLanguage);
    return answerOf(pressed, message.buttons);
}

} // namespace tollvane::win32
