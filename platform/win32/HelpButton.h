#pragma once

#include "platform/MessageBox.h"

#include <windows.h>

namespace tollvane::win32 {

class Ui;

/// Leads the Help button (and F1) of the message box that opens next to what the message wants it
/// to do, whether the box has an owner or not. Lives as long as the box is open.
class HelpButton {
public:
    HelpButton(Ui& ui, const Message& message);
    HelpButton(const HelpButton&) = delete;
    HelpButton& operator=(const HelpButton&) = delete;
    ~HelpButton();

private:
    static LRESULT CALLBACK activating(int code, WPARAM window, LPARAM about);
    static LRESULT CALLBACK received(HWND window, UINT message, WPARAM first, LPARAM second,
                                     UINT_PTR id, DWORD_PTR self);
    void attach(HWND box);
    void unhook();

    static inline HelpButton* waiting_ = nullptr; ///< for a hook, which carries no data

    Ui& ui_;
    const Message& message_;
    HHOOK hook_ = nullptr;
    HWND box_ = nullptr;
};

} // namespace tollvane::win32
