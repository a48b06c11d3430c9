#include "platform/win32/Focus.h"

#include "platform/win32/FormCore.h"
#include "platform/win32/NativeControl.h"

#include <utility>

namespace tollvane::win32 {

bool Focus::leaveTo(NativeControl& target) {
    if (active_ == &target) {
        return true;
    }
    bool cancel = false;
    if (active_ && active_->events().validate) {
        form_.ui().guarded([&] { active_->events().validate(cancel); });
    }
    if (cancel || !form_.window() || !target.canTakeFocus()) {
        return false;
    }
    moveTo(target);
    return form_.window() && active_ == &target;
}

void Focus::moveTo(NativeControl& target) {
    if (!form_.window() || active_ == &target) {
        return;
    }
    NativeControl* const from = std::exchange(active_, &target);
    if (!form_.isActive()) {
        return;
    }
    const bool outer = std::exchange(moving_, true);
    SetFocus(target.window());
    moving_ = outer;
    raiseMove(from, target);
}

void Focus::raiseMove(NativeControl* from, NativeControl& to) {
    if (from && from->events().lostFocus) {
        form_.ui().guarded(from->events().lostFocus);
    }
    // The handler may have sent the focus elsewhere, or closed the form.
    if (form_.window() && active_ == &to && to.events().gotFocus) {
        form_.ui().guarded(to.events().gotFocus);
    }
}

void Focus::drop(const NativeControl& control) {
    if (active_ != &control) {
        return;
    }
    active_ = nullptr;
    if (form_.isActive()) {
        SetFocus(form_.window()); // the form's key preview still sees the keys
    }
}

void Focus::cameTo(NativeControl& control) {
    if (moving_ || active_ == &control) {
        return;
    }
    raiseMove(std::exchange(active_, &control), control);
}

void Focus::restore() {
    if (active_ && active_->window()) {
        SetFocus(active_->window());
    }
}

void Focus::enterFirst() {
    if (active_) {
        restore();
    } else if (NativeControl* first = form_.navigation.firstStop()) {
        moveTo(*first);
    }
}

} // namespace tollvane::win32
