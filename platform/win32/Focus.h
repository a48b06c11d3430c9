#pragma once

#include <windows.h>

namespace tollvane::win32 {

class FormCore;
class NativeControl;

/// Which control of a form has the focus, and the events of its moves. The form's idea of the focus
/// outlives a visit to another window, where the system's own does not.
class Focus {
public:
    explicit Focus(FormCore& form) : form_(form) {}

    NativeControl* active() const { return active_; }

    /// The control that had the focus last when none has it now.
    NativeControl* lastActive() const { return last_; }
    /// Asks the validation of the control that has the focus; false when it refuses.
    bool validated();
    /// The user goes to another control. False when the validation of the control that has the
    /// focus refused, or when the target can no longer take it.
    bool leaveTo(NativeControl& target);
    /// The last walk was allowed, but a handler sent the focus back to where it came from.
    bool wasSentBack() const { return sentBack_; }
    /// Moves the focus without asking. The events are raised when the form is the active window.
    void moveTo(NativeControl& target);
    /// The control was disabled or hidden: nobody has the focus then, without an event.
    void drop(const NativeControl& control);
    /// The system gave the focus to a control.
    void cameTo(NativeControl& control);
    /// The system gave the focus to the form itself: on to the control that had it.
    void restore();
    /// The form is shown for the first time.
    void enterFirst();

private:
    void raiseMove(NativeControl* from, NativeControl& to);
    void take(NativeControl& control);

    FormCore& form_;
    NativeControl* active_ = nullptr;
    NativeControl* last_ = nullptr;
    NativeControl* told_ = nullptr; ///< the control that knows that it has the focus
    bool entered_ = false;
    bool moving_ = false;
    bool sentBack_ = false;
};

} // namespace tollvane::win32
