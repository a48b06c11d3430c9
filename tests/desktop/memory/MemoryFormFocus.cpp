// How the focus moves inside an in-memory form.
#include "tests/desktop/memory/MemoryForm.h"

#include <algorithm>
#include <cctype>
#include <cstddef>

namespace tollvane::test {

namespace {

/// The access key of a caption in capitals, or 0.
char accessKeyOf(const std::string& caption) {
    for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] == '&') {
            if (caption[i + 1] != '&') {
                return static_cast<char>(std::toupper(static_cast<unsigned char>(caption[i + 1])));
            }
            ++i;
        }
    }
    return 0;
}

} // namespace

void MemoryForm::becameActive() {
    if (!everActive_) {
        everActive_ = true;
        if (active_ == nullptr) {
            active_ = nextStop(cores_.size(), true);
        }
        if (active_ != nullptr && !active_->focused) {
            ControlCore& first = *active_;
            first.focused = true;
            first.raise("GotFocus", first.events().gotFocus);
        }
    }
    if (on.activate && host_.active() == this) {
        runHandler("Activate", on.activate);
    }
}

void MemoryForm::becameUnusable(ControlCore& core) {
    if (active_ == &core) {
        active_ = nullptr;
        lastPosition_ = core.position;
        core.focused = false;
    }
}

void MemoryForm::changeFocus(ControlCore& to) {
    if (active_ == &to) {
        return;
    }
    ControlCore* left = active_;
    active_ = &to;
    lastPosition_ = to.position;
    const bool told = left != nullptr && left->focused;
    if (left != nullptr) {
        left->focused = false;
    }
    if (host_.active() != this) {
        to.focused = everActive_; // coming back to the form raises no got-focus
        return;
    }
    if (told) {
        left->raise("LostFocus", left->events().lostFocus);
    }
    // The handler may have sent the focus elsewhere; then this control never had it.
    if (active_ == &to && !to.focused) {
        to.focused = true;
        to.raise("GotFocus", to.events().gotFocus);
    }
}

bool MemoryForm::validated() {
    ControlCore* leaving = active_;
    if (leaving == nullptr) {
        return true;
    }
    bool cancel = false;
    leaving->raise("Validate", leaving->events().validate, cancel);
    return !cancel && active_ == leaving && host_.active() == this;
}

bool MemoryForm::moveFocusByUser(ControlCore& to) {
    if (active_ == &to) {
        return true;
    }
    if ((to.causesValidation && !validated()) || !to.canTakeFocus()) {
        return false;
    }
    ControlCore* left = active_;
    changeFocus(to);
    const bool sentBack = left != nullptr && active_ == left && to.kind == ControlKind::button;
    return active_ == &to || (sentBack && to.canTakeFocus());
}

bool MemoryForm::isTabStop(const ControlCore& core) const {
    if (!core.canTakeFocus() || !core.tabStop) {
        return false;
    }
    const auto* option = dynamic_cast<const MemoryOptionButton*>(&core);
    if (option == nullptr || option->selected()) {
        return true;
    }
    const std::vector<MemoryOptionButton*> buttons = optionArray(core.name);
    const auto usable = [](const MemoryOptionButton* b) { return b->canTakeFocus(); };
    const bool chosen = std::any_of(buttons.begin(), buttons.end(),
                                    [&](const auto* b) { return b->selected() && usable(b); });
    return !chosen && *std::find_if(buttons.begin(), buttons.end(), usable) == option;
}

ControlCore* MemoryForm::nextStop(std::size_t from, bool forward) const {
    const std::size_t count = cores_.size();
    // A position behind the last control starts at the first.
    std::size_t position = from >= count ? (forward ? count - 1 : 0) : from;
    for (std::size_t step = 0; step < count; ++step) {
        position = forward ? (position + 1) % count : (position + count - 1) % count;
        if (isTabStop(*cores_[position])) {
            return cores_[position].get();
        }
    }
    return nullptr;
}

void MemoryForm::tab(bool forward) {
    const std::size_t from = active_ != nullptr ? active_->position : lastPosition_;
    if (ControlCore* next = nextStop(from, forward)) {
        moveFocusByUser(*next);
    }
}

void MemoryForm::click(ControlCore& core) {
    if (!core.usable() || !core.takesFocus()) {
        return;
    }
    if (moveFocusByUser(core)) {
        core.clicked();
    }
}

ControlCore* MemoryForm::withAccessKey(char letter) const {
    const char wanted = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    // Controls that share an access key take turns: the search starts behind the active one.
    const std::size_t from = active_ != nullptr ? active_->position + 1 : 0;
    for (std::size_t step = 0; step < cores_.size(); ++step) {
        ControlCore* core = cores_[(from + step) % cores_.size()].get();
        const auto* menu = dynamic_cast<const MemoryMenuItem*>(core);
        const bool reachable = menu == nullptr || menu->level == 0;
        if (reachable && core->usable() && accessKeyOf(core->captionText()) == wanted) {
            return core;
        }
    }
    return nullptr;
}

void MemoryForm::accessKey(char letter) {
    ControlCore* core = withAccessKey(letter);
    if (core == nullptr) {
        return;
    }
    if (core->kind == ControlKind::menuItem) {
        openMenu(core->name);
    } else if (core->takesFocus()) {
        if (moveFocusByUser(*core)) {
            core->pressed();
        }
    } else {
        const auto next =
            std::find_if(cores_.begin() + static_cast<std::ptrdiff_t>(core->position), cores_.end(),
                         [](const auto& candidate) { return candidate->canTakeFocus(); });
        if (next != cores_.end()) {
            moveFocusByUser(**next);
        }
    }
}

} // namespace tollvane::test
