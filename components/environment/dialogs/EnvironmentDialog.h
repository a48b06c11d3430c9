// What the dialogs of the environment share.
#pragma once

#include "components/common/ModalDialog.h"

#include <string>

namespace tollvane::environment {

class EnvironmentDialog : public com::ModalDialog {
protected:
    using ModalDialog::ModalDialog;

    // Texts as people write their names, whatever the code page.
    [[nodiscard]] std::wstring boxText(int id) const;
    void setBoxText(int id, const std::wstring& text);
    // The program has just been started: its first window belongs in front.
    void comeToFront();
};

// The hourglass while it lives.
class WaitPointer {
public:
    WaitPointer() noexcept : before_(SetCursor(LoadCursor(nullptr, IDC_WAIT))) {}
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;
    ~WaitPointer() { SetCursor(before_); }

private:
    HCURSOR before_;
};

} // namespace tollvane::environment
