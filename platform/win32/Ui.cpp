#include "platform/win32/Ui.h"

#include "platform/win32/FormCore.h"
#include "platform/win32/SystemText.h"

#include <algorithm>

namespace tollvane::win32 {

Ui::Ui(HINSTANCE instance, std::function<void(const Error&)> escaped)
    : instance_(instance), controlNameMessage_(RegisterWindowMessageA("WM_GETCONTROLNAME")),
      escaped_(std::move(escaped)) {}

void Ui::report() noexcept {
    try {
        escaped_(currentError());
    } catch (...) {
        MessageBeep(MB_ICONERROR); // nothing is left to report with
    }
}

FormCore* Ui::formOf(HWND window) const {
    const HWND root = GetAncestor(window, GA_ROOT);
    const auto found = std::find_if(openForms_.begin(), openForms_.end(),
                                    [root](FormCore* form) { return form->window() == root; });
    return found == openForms_.end() ? nullptr : *found;
}

FormCore* Ui::formInFront() const {
    const HWND active = GetActiveWindow();
    if (FormCore* form = active ? formOf(active) : nullptr) {
        return form;
    }
    // The program is not the active one: the form that was opened last lies on top.
    const auto visible = std::find_if(openForms_.rbegin(), openForms_.rend(), [](FormCore* form) {
        return IsWindowVisible(form->window()) != FALSE;
    });
    return visible == openForms_.rend() ? nullptr : *visible;
}

LRESULT answerControlName(std::string_view name, WPARAM size, LPARAM buffer) {
    const std::wstring wide = widened(name);
    const std::size_t needed = wide.size() + 1;
    if (buffer == 0) {
        return static_cast<LRESULT>(needed * sizeof(wchar_t));
    }
    if (size < needed) {
        return -1;
    }
    auto* target = reinterpret_cast<wchar_t*>(buffer); // NOLINT(performance-no-int-to-ptr)
    std::copy_n(wide.c_str(), needed, target);
    return static_cast<LRESULT>(needed);
}

} // namespace tollvane::win32
