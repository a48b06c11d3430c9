// The road of a key through an in-memory form, and its menus.
#include "tests/desktop/Robot.h"
#include "tests/desktop/memory/MemoryForm.h"

#include <algorithm>

namespace tollvane::test {

bool MemoryForm::keyDown(ControlCore* target, int& keyCode, int shift) {
    if (keyPreview_ && on.keyDown) {
        runHandler("KeyDown", [&] { on.keyDown(keyCode, shift); });
    }
    if (keyCode != 0 && target != nullptr) {
        target->raise("KeyDown", target->events().keyDown, keyCode, shift);
    }
    return keyCode != 0;
}

bool MemoryForm::keyPress(ControlCore* target, int& ascii) {
    if (keyPreview_ && on.keyPress) {
        runHandler("KeyPress", [&] { on.keyPress(ascii); });
    }
    if (ascii != 0 && target != nullptr) {
        target->raise("KeyPress", target->events().keyPress, ascii);
    }
    return ascii != 0;
}

void MemoryForm::keyStroke(int keyCode, int shift, int character) {
    // A key goes all its way to the control that had the focus when it was pressed.
    ControlCore* target = active_;
    const auto gone = [&] { return !isOpen() || (target != nullptr && !target->usable()); };
    if (!keyDown(target, keyCode, shift) || gone()) {
        return;
    }
    if (character < 0) {
        if (target != nullptr) {
            target->command(keyCode, shift);
        }
        return;
    }
    if (!keyPress(target, character) || gone()) {
        return;
    }
    if (character == keycode::enter) {
        enter(target);
    } else if (character == keycode::escape) {
        press(cancelButton_);
    } else if (target != nullptr) {
        target->character(character);
    }
}

void MemoryForm::enter(ControlCore* target) {
    if (defaultButton_.empty()) {
        return;
    }
    const bool onButton = target != nullptr && target->kind == ControlKind::button;
    if (onButton) {
        target->pressed();
    } else if (!core(defaultButton_, -1).causesValidation || validated()) {
        press(defaultButton_);
    }
}

void MemoryForm::press(const std::string& button) {
    if (button.empty()) {
        return;
    }
    ControlCore& found = core(button, -1);
    if (found.usable()) {
        found.pressed();
    }
}

void MemoryForm::paste() {
    if (active_ != nullptr) {
        active_->pasted(host_.clipboard);
    }
}

MemoryMenuItem& MemoryForm::menuItem(std::string_view name) {
    return dynamic_cast<MemoryMenuItem&>(core(name, -1));
}

bool MemoryForm::hasMenuBelow(const MemoryMenuItem& item) const {
    const auto here = std::find(menus_.begin(), menus_.end(), &item);
    return here + 1 != menus_.end() && (*(here + 1))->level > item.level;
}

std::vector<MemoryMenuItem*> MemoryForm::menusAbove(const MemoryMenuItem& item) const {
    std::vector<MemoryMenuItem*> above;
    int level = item.level;
    for (auto at = std::find(menus_.begin(), menus_.end(), &item); at != menus_.begin();) {
        --at;
        if ((*at)->level < level) {
            level = (*at)->level;
            above.insert(above.begin(), *at);
        }
    }
    return above;
}

bool MemoryForm::openMenusAbove(const MemoryMenuItem& item) {
    for (MemoryMenuItem* menu : menusAbove(item)) {
        // A hidden menu at the top is a pop-up: whoever got here has it open.
        if (!menu->ControlCore::enabled || (menu->level > 0 && !menu->ControlCore::visible)) {
            return false;
        }
        menu->pressed();
        if (!isOpen()) {
            return false;
        }
    }
    return true;
}

void MemoryForm::chooseMenu(std::string_view name) {
    MemoryMenuItem& item = menuItem(name);
    if (openMenusAbove(item) && item.usable() && !hasMenuBelow(item)) {
        item.pressed();
    }
}

void MemoryForm::openMenu(std::string_view name) {
    MemoryMenuItem& menu = menuItem(name);
    if (openMenusAbove(menu) && menu.usable() && hasMenuBelow(menu)) {
        menu.pressed();
    }
}

void MemoryForm::popUpMenu(std::string_view menuName) {
    host_.changing(name_ + ".popUpMenu");
    MemoryMenuItem& menu = menuItem(menuName);
    const std::string planned = std::exchange(host_.popUpPlan, {});
    if (planned.empty()) {
        menu.pressed();
        return;
    }
    MemoryMenuItem& item = menuItem(planned);
    const std::vector<MemoryMenuItem*> above = menusAbove(item);
    if (above.empty() || above.front() != &menu) {
        throw Error(errornumber::invalidProcedureCall, name_,
                    planned + " does not stand in the menu " + std::string(menuName));
    }
    chooseMenu(planned);
}

} // namespace tollvane::test
