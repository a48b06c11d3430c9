#include "platform/win32/KeyRouting.h"

#include "platform/win32/FormCore.h"
#include "platform/win32/NativeControl.h"

#include <array>
#include <utility>

namespace tollvane::win32 {

namespace {

bool isDown(int key) {
    return GetKeyState(key) < 0;
}

int shiftState() {
    // One question to the system, and not three: it is asked at every key of a card reader.
    std::array<BYTE, 256> keys{};
    GetKeyboardState(keys.data());
    const auto mask = [&keys](std::size_t key, int bit) {
        return (keys[key] & 0x80) != 0 ? bit : 0;
    };
    return mask(VK_SHIFT, shiftmask::shift) | mask(VK_CONTROL, shiftmask::control) |
           mask(VK_MENU, shiftmask::alt);
}

bool isModifier(WPARAM key) {
    return key == VK_SHIFT || key == VK_CONTROL || key == VK_MENU || key == VK_CAPITAL ||
           key == VK_LWIN || key == VK_RWIN || key == VK_NUMLOCK;
}

bool isLetterOrDigit(WPARAM key) {
    return (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9');
}

} // namespace

bool KeyRouting::keyDown(NativeControl* target, WPARAM& key, bool system) {
    form_.ui().takeDroppedKey();
    firstHalf_ = 0;
    listWasOpen_ = target && target->keepsEnterAndEscape();
    if (isModifier(key)) {
        return true;
    }
    if (system && isDown(VK_MENU)) {
        // Access keys and the window's own Alt keys move the focus and reach no handler.
        const bool plain = !isDown(VK_CONTROL) && !isDown(VK_SHIFT);
        if ((plain && isLetterOrDigit(key)) || key == VK_SPACE || key == VK_TAB || key == VK_F4) {
            return true;
        }
    }
    if (key == VK_TAB && !isDown(VK_CONTROL)) {
        form_.ui().dropKey();
        form_.navigation.tab(!isDown(VK_SHIFT));
        return false;
    }
    if (!raiseKeyDown(target, key) || isGone(target)) {
        form_.ui().dropKey();
        return false;
    }
    if (target && target->kind() == ControlKind::optionButton && key >= VK_LEFT && key <= VK_DOWN) {
        form_.navigation.arrow(*target, key == VK_RIGHT || key == VK_DOWN);
        return false;
    }
    return true;
}

bool KeyRouting::isGone(const NativeControl* target) const {
    return !form_.window() || (target && !target->isShownAndEnabled());
}

bool KeyRouting::raiseKeyDown(NativeControl* target, WPARAM& key) {
    int code = static_cast<int>(key);
    const int shift = shiftState();
    if (form_.keyPreview && form_.on().keyDown) {
        form_.ui().guarded([&] { form_.on().keyDown(code, shift); });
    }
    if (code != 0 && target && target->events().keyDown) {
        form_.ui().guarded([&] { target->events().keyDown(code, shift); });
    }
    key = static_cast<WPARAM>(code);
    return code != 0;
}

int KeyRouting::completed(WPARAM character) {
    const auto byte = static_cast<BYTE>(character);
    if (const BYTE first = std::exchange(firstHalf_, BYTE{0}); first != 0) {
        return first << 8 | byte;
    }
    if (IsDBCSLeadByte(byte) != FALSE) {
        firstHalf_ = byte;
        return 0;
    }
    return byte;
}

void KeyRouting::character(NativeControl* target, WPARAM character, LPARAM info) {
    const bool kept =
        std::exchange(listWasOpen_, false) || (target && target->keepsEnterAndEscape());
    if (form_.ui().takeDroppedKey() || character == '\t' || character == 0) {
        return;
    }
    int code = completed(character);
    if (code == 0) {
        return;
    }
    if (form_.keyPreview && form_.on().keyPress) {
        form_.ui().guarded([&] { form_.on().keyPress(code); });
    }
    if (code != 0 && target && target->events().keyPress) {
        form_.ui().guarded([&] { target->events().keyPress(code); });
    }
    if (code == 0 || isGone(target)) {
        return;
    }
    if (!kept && code == VK_RETURN) {
        enter(target);
    } else if (!kept && code == VK_ESCAPE) {
        pressNamed(form_.cancelButton);
    } else if (target) {
        target->typed(code, info);
    }
}

void KeyRouting::enter(NativeControl* target) const {
    const NativeControl* const named = form_.controlNamed(form_.defaultButton);
    if (!named) {
        return;
    }
    if (target && target->kind() == ControlKind::button) {
        target->press();
    } else if (!named->causesValidation() || form_.focus.validated()) {
        pressNamed(form_.defaultButton);
    }
}

void KeyRouting::pressNamed(const std::string& button) const {
    NativeControl* const named = button.empty() ? nullptr : form_.controlNamed(button);
    if (named && named->canTakeFocus()) {
        named->press();
    }
}

bool KeyRouting::altCharacter(WPARAM character) const {
    return form_.navigation.accessKey(static_cast<char>(character));
}

} // namespace tollvane::win32
