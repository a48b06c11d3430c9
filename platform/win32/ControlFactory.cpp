#include "platform/win32/ControlFactory.h"

#include "platform/win32/Win32Buttons.h"
#include "platform/win32/Win32ComboBox.h"
#include "platform/win32/Win32Decorations.h"
#include "platform/win32/Win32StatusBar.h"
#include "platform/win32/Win32TextBox.h"
#include "platform/win32/Win32Timer.h"

namespace tollvane::win32 {

std::unique_ptr<NativeControl> makeControl(FormCore& core, const FormDescription& form,
                                           const ControlDescription& description) {
    switch (description.kind) {
    case ControlKind::label: return std::make_unique<Win32Label>(core, description);
    case ControlKind::textBox: return std::make_unique<Win32TextBox>(core, description);
    case ControlKind::comboBox: return std::make_unique<Win32ComboBox>(core, description);
    case ControlKind::checkBox: return std::make_unique<Win32CheckBox>(core, description);
    case ControlKind::optionButton: return std::make_unique<Win32OptionButton>(core, description);
    case ControlKind::button: return std::make_unique<Win32Button>(core, description);
    case ControlKind::frame: return std::make_unique<Win32Frame>(core, description);
    case ControlKind::timer: return std::make_unique<Win32Timer>(core, description);
    case ControlKind::statusBar:
        return std::make_unique<Win32StatusBar>(core, description, form.panels);
    case ControlKind::picture: return std::make_unique<Win32Picture>(core, description);
    case ControlKind::menuItem: break; // menus have a table of their own
    }
    throw Error(errornumber::invalidProcedureCall, std::string(description.name),
                "Invalid procedure call or argument");
}

} // namespace tollvane::win32
