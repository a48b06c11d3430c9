#include "platform/win32/Win32Desktop.h"

#include "platform/win32/MessagePump.h"

namespace tollvane::win32 {

Win32Desktop::Win32Desktop(HINSTANCE instance)
    : program_(instance), ui_(instance, [this](const Error& error) { reportEscaped(error); }) {}

Desktop Win32Desktop::desktop() {
    return {forms_, messageBoxes_, registry_, automation_, files_,  program_, locale_,
            clock_, screen_,       mouse_,    random_,     beeper_, shell_,   printers_};
}

void Win32Desktop::run() {
    pumpWhile(ui_, [this] { return !ui_.openForms().empty(); });
}

void Win32Desktop::reportEscaped(const Error& error) {
    messageBoxes_.show({failureText("There was an unexpected error.", error), {}});
}

} // namespace tollvane::win32
