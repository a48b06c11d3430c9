#pragma once

#include "platform/Desktop.h"
#include "platform/win32/ComHandles.h"
#include "platform/win32/Ui.h"
#include "platform/win32/Win32Automation.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32Forms.h"
#include "platform/win32/Win32MessageBoxes.h"
#include "platform/win32/Win32Printers.h"
#include "platform/win32/Win32ProgramFacts.h"
#include "platform/win32/Win32Registry.h"
#include "platform/win32/Win32Shell.h"
#include "platform/win32/Win32Surroundings.h"

namespace tollvane::win32 {

/// The real desktop: owns an adapter for every port, and COM on the calling thread.
class Win32Desktop {
public:
    explicit Win32Desktop(HINSTANCE instance);
    Win32Desktop(const Win32Desktop&) = delete;
    Win32Desktop& operator=(const Win32Desktop&) = delete;

    Desktop desktop();
    /// Handles messages until no form is open.
    void run();

private:
    void reportEscaped(const Error& error);

    ComApartment com_;
    Win32ProgramFacts program_;
    Ui ui_;
    Win32MessageBoxes messageBoxes_{ui_, program_};
    Win32Forms forms_{ui_};
    Win32Registry registry_;
    Win32Automation automation_;
    Win32Files files_;
    Win32Locale locale_;
    Win32Clock clock_;
    Win32Screen screen_;
    Win32Mouse mouse_;
    Win32RandomNumbers random_;
    Win32Beeper beeper_;
    Win32Printers printers_;
    Win32Shell shell_;
};

} // namespace tollvane::win32
