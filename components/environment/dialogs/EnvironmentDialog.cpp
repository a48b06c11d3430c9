#include "components/environment/dialogs/EnvironmentDialog.h"

namespace tollvane::environment {

std::wstring EnvironmentDialog::boxText(int id) const {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(item(id))) + 1, L'\0');
    const int length = GetWindowTextW(item(id), text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

void EnvironmentDialog::setBoxText(int id, const std::wstring& text) {
    SetWindowTextW(item(id), text.c_str());
}

void EnvironmentDialog::comeToFront() {
    SetForegroundWindow(window());
    BringWindowToTop(window());
}

} // namespace tollvane::environment
