#include "platform/win32/Win32Forms.h"

#include "platform/win32/Win32Form.h"

#include <commctrl.h>

namespace tollvane::win32 {

Win32Forms::Win32Forms(Ui& ui) : ui_(ui) {
    INITCOMMONCONTROLSEX wanted{sizeof wanted, ICC_STANDARD_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&wanted);
    Win32Form::registerClass(ui.instance());
}

std::unique_ptr<Form> Win32Forms::create(const FormDescription& description) {
    return std::make_unique<Win32Form>(ui_, description);
}

} // namespace tollvane::win32
