#pragma once

#include "platform/Automation.h"
#include "platform/Files.h"
#include "platform/Form.h"
#include "platform/MessageBox.h"
#include "platform/Printer.h"
#include "platform/ProgramFacts.h"
#include "platform/Registry.h"
#include "platform/Shell.h"
#include "platform/Surroundings.h"

namespace tollvane {

/// Everything that the program asks of the desktop, handed to constructors as one object. The
/// referenced ports outlive it.
struct Desktop {
    Forms& forms;
    MessageBoxes& messageBoxes;
    Registry& registry;
    Automation& automation;
    Files& files;
    ProgramFacts& program;
    Locale& locale;
    Clock& clock;
    Screen& screen;
    Mouse& mouse;
    RandomNumbers& random;
    Beeper& beeper;
    Shell& shell;
    Printers& printers;
};

} // namespace tollvane
