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

void Ui::opened(FormCore& form) {
    std::erase(openForms_, &form);
    openForms_.push_back(&form);
}

void Ui::closed(FormCore& form) {
    std::erase(openForms_, &form);
    std::erase(modalForms_, &form);
}

void Ui::openedModal(FormCore& form) {
    ++modalsSoFar_;
    modalForms_.push_back(&form);
}

const Message* Ui::setOpenBox(const Message* box) {
    modalsSoFar_ += box ? 1 : 0;
    return std::exchange(openBox_, box);
}

void Ui::deliverActivations() {
    // A copy: handlers may open and close forms.
    for (FormCore* form : std::vector<FormCore*>(openForms_)) {
        if (std::find(openForms_.begin(), openForms_.end(), form) != openForms_.end()) {
            form->deliverActivation();
        }
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
    return openForms_.empty() ? nullptr : openForms_.back();
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
