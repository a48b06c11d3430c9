#include "platform/win32/Focus.h"

#include "platform/win32/FormCore.h"
#include "platform/win32/NativeControl.h"

#include <utility>

namespace tollvane::win32 {

bool Focus::validated() {
    NativeControl* const leaving = active_;
    bool cancel = false;
    if (leaving && leaving->events().validate) {
        form_.ui().guarded([&] { leaving->events().validate(cancel); });
    }
    return !cancel && form_.window() && active_ == leaving;
}

bool Focus::leaveTo(NativeControl& target) {
    sentBack_ = false;
    if (active_ == &target) {
        return true;
    }
    NativeControl* const from = active_;
    if ((target.causesValidation() && !validated()) || !target.canTakeFocus()) {
        return false;
    }
    moveTo(target);
    sentBack_ = form_.window() && from && active_ == from;
    return form_.window() && active_ == &target;
}

void Focus::moveTo(NativeControl& target) {
    if (!form_.window() || active_ == &target) {
        return;
    }
    NativeControl* const from = std::exchange(active_, &target);
    last_ = &target;
    if (!form_.isActive()) {
        // Coming back to the form raises nothing in its controls.
        told_ = entered_ ? &target : nullptr;
        return;
    }
    take(target);
    raiseMove(from, target);
}

void Focus::take(NativeControl& control) {
    const bool outer = std::exchange(moving_, true);
    SetFocus(control.window());
    moving_ = outer;
}

void Focus::raiseMove(NativeControl* from, NativeControl& to) {
    const bool tell = from && from == told_;
    told_ = nullptr;
    if (tell && from->events().lostFocus) {
        form_.ui().guarded(from->events().lostFocus);
    }
    // The handler may have sent the focus elsewhere, or closed the form.
    if (form_.window() && active_ == &to && told_ != &to) {
        told_ = &to;
        if (to.events().gotFocus) {
            form_.ui().guarded(to.events().gotFocus);
        }
    }
}

void Focus::drop(const NativeControl& control) {
    if (active_ != &control) {
        return;
    }
    active_ = nullptr;
    told_ = nullptr;
    if (form_.isActive()) {
        SetFocus(form_.window()); // the form's key preview still sees the keys
    }
}

void Focus::cameTo(NativeControl& control) {
    if (moving_ || active_ == &control) {
        return;
    }
    last_ = &control;
    raiseMove(std::exchange(active_, &control), control);
}

void Focus::restore() {
    if (active_ && active_->window()) {
        take(*active_);
    }
}

void Focus::enterFirst() {
    entered_ = true;
    if (!active_) {
        active_ = form_.navigation.firstStop();
        last_ = active_;
    }
    if (active_) {
        take(*active_);
        raiseMove(nullptr, *active_);
    }
}

} // namespace tollvane::win32
