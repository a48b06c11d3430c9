#include "platform/win32/Navigation.h"

#include "platform/win32/FormCore.h"
#include "platform/win32/NativeControl.h"

#include <algorithm>

namespace tollvane::win32 {

namespace {

char upper(char letter) {
    return static_cast<char>(LOWORD(CharUpperA(reinterpret_cast<LPSTR>(static_cast<ULONG_PTR>(
        static_cast<unsigned char>(letter)))))); // NOLINT(performance-no-int-to-ptr)
}

/// The access key that a caption marks with "&", as a capital; 0 when there is none.
char accessKeyOf(const std::string& caption) {
    for (std::size_t at = caption.find('&'); at != std::string::npos && at + 1 < caption.size();
         at = caption.find('&', at + 2)) {
        if (caption[at + 1] != '&') {
            return upper(caption[at + 1]);
        }
    }
    return 0;
}

bool sameArray(const NativeControl& one, const NativeControl& other) {
    return one.kind() == ControlKind::optionButton && other.kind() == ControlKind::optionButton &&
           one.controlName() == other.controlName();
}

} // namespace

std::vector<NativeControl*> Navigation::arrayOf(const NativeControl& member) const {
    std::vector<NativeControl*> array;
    for (const auto& control : form_.controls()) {
        if (sameArray(*control, member)) {
            array.push_back(control.get());
        }
    }
    return array;
}

bool Navigation::isStop(const NativeControl& control) const {
    if (!control.canTakeFocus() || !control.isTabStop()) {
        return false;
    }
    if (control.kind() != ControlKind::optionButton) {
        return true;
    }
    const auto array = arrayOf(control);
    const auto reachable = [](const NativeControl* one) {
        return one->canTakeFocus() && one->isTabStop();
    };
    const auto selected = std::find_if(array.begin(), array.end(), [&](const NativeControl* one) {
        return reachable(one) && one->isMarked();
    });
    if (selected != array.end()) {
        return *selected == &control;
    }
    return *std::find_if(array.begin(), array.end(), reachable) == &control;
}

NativeControl* Navigation::firstStop() const {
    const auto& controls = form_.controls();
    const auto found = std::find_if(controls.begin(), controls.end(),
                                    [this](const auto& one) { return isStop(*one); });
    return found == controls.end() ? nullptr : found->get();
}

std::size_t Navigation::placeOf(const NativeControl* control) const {
    const auto& controls = form_.controls();
    const auto found = std::find_if(controls.begin(), controls.end(),
                                    [control](const auto& one) { return one.get() == control; });
    return static_cast<std::size_t>(found - controls.begin());
}

void Navigation::tab(bool forward) const {
    const auto& controls = form_.controls();
    const NativeControl* from = form_.focus.active();
    if (!from) {
        from = form_.focus.lastActive();
    }
    const std::size_t count = controls.size();
    // When no control ever had the focus, the walk starts before the first or behind the last.
    const std::size_t start = from ? placeOf(from) : (forward ? count - 1 : 0);
    for (std::size_t step = 1; step <= count; ++step) {
        NativeControl& next = *controls[(start + (forward ? step : count - step)) % count];
        if (isStop(next)) {
            form_.focus.leaveTo(next);
            return;
        }
    }
}

NativeControl* Navigation::nextFocusable(const NativeControl& behind) const {
    const auto& controls = form_.controls();
    for (std::size_t at = placeOf(&behind) + 1; at < controls.size(); ++at) {
        if (controls[at]->canTakeFocus()) {
            return controls[at].get();
        }
    }
    return nullptr;
}

NativeControl* Navigation::ownerOf(char letter) const {
    const auto& controls = form_.controls();
    const std::size_t count = controls.size();
    const NativeControl* active = form_.focus.active();
    const std::size_t start = active ? placeOf(active) + 1 : 0;
    for (std::size_t step = 0; step < count; ++step) {
        NativeControl& control = *controls[(start + step) % count];
        if (control.isShownAndEnabled() && accessKeyOf(control.captionText()) == upper(letter) &&
            (control.takesFocus() || nextFocusable(control))) {
            return &control;
        }
    }
    return nullptr;
}

bool Navigation::accessKey(char letter) const {
    NativeControl* const owner = upper(letter) ? ownerOf(letter) : nullptr;
    if (!owner) {
        return false;
    }
    NativeControl* const target = owner->takesFocus() ? owner : nextFocusable(*owner);
    if (!target) {
        return false;
    }
    const bool arrived = form_.focus.leaveTo(*target);
    const bool pressedAnyway = form_.focus.wasSentBack() && target->kind() == ControlKind::button;
    if ((arrived || pressedAnyway) && target == owner && target->canTakeFocus()) {
        target->press();
    }
    return true;
}

void Navigation::arrow(const NativeControl& from, bool forward) const {
    const auto array = arrayOf(from);
    const auto here = std::find(array.begin(), array.end(), &from);
    const auto start = static_cast<std::size_t>(here - array.begin());
    const std::size_t count = array.size();
    for (std::size_t step = 1; step < count; ++step) {
        NativeControl& next = *array[(start + (forward ? step : count - step)) % count];
        if (next.canTakeFocus()) {
            if (form_.focus.leaveTo(next)) {
                next.press();
            }
            return;
        }
    }
}

} // namespace tollvane::win32
