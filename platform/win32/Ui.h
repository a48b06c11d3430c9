#pragma once

#include "platform/Error.h"
#include "platform/MessageBox.h"

#include <windows.h>

#include <functional>
#include <utility>
#include <vector>

namespace tollvane::win32 {

class FormCore;

/// What the forms and message boxes of one desktop share. Lives as long as any of them.
class Ui {
public:
    /// `escaped` is told of an error that left a handler although handlers catch their own.
    Ui(HINSTANCE instance, std::function<void(const Error&)> escaped);
    Ui(const Ui&) = delete;
    Ui& operator=(const Ui&) = delete;

    HINSTANCE instance() const { return instance_; }
    /// The registered message to which windows answer with their name.
    UINT controlNameMessage() const { return controlNameMessage_; }

    /// Runs a handler; nothing is thrown out of it.
    template <class Body>
    void guarded(Body&& body) noexcept {
        try {
            body();
        } catch (...) {
            report();
        }
    }
    /// Passes the exception that is being handled to the last resort.
    void report() noexcept;

    void opened(FormCore& form);
    void closed(FormCore& form);
    /// The forms that have been shown and not been closed, the latest last.
    const std::vector<FormCore*>& openForms() const { return openForms_; }
    /// Modal forms that are open, the innermost last.
    const std::vector<FormCore*>& modalForms() const { return modalForms_; }
    void openedModal(FormCore& form);
    /// The open form that is the window, or that it stands on, or null.
    FormCore* formOf(HWND window) const;
    /// The form that owns a message box shown now, or null.
    FormCore* formInFront() const;

    /// Grows with every message box and modal form: whoever compares it before and after a handler
    /// knows whether the user was asked something in between.
    unsigned modalsSoFar() const { return modalsSoFar_; }

    /// The message box that is open, or null.
    const Message* openBox() const { return openBox_; }
    /// Returns the box that was open before.
    const Message* setOpenBox(const Message* box);
    /// Tells the forms that have become active so, where they have not heard of it yet.
    void deliverActivations();

    /// A key-down that ended its road: its character must not follow.
    void dropKey() { keyDropped_ = true; }
    bool takeDroppedKey() { return std::exchange(keyDropped_, false); }

private:
    HINSTANCE instance_;
    UINT controlNameMessage_;
    std::function<void(const Error&)> escaped_;
    std::vector<FormCore*> openForms_;
    std::vector<FormCore*> modalForms_;
    unsigned modalsSoFar_ = 0;
    const Message* openBox_ = nullptr;
    bool keyDropped_ = false;
};

/// The answer of a window to the control-name message: the name as wide text into the buffer of
/// `size` characters. Returns the characters written with the closing NUL, -1 when the buffer is
/// too small, and the bytes needed when there is no buffer.
LRESULT answerControlName(std::string_view name, WPARAM size, LPARAM buffer);

} // namespace tollvane::win32
