#include "tests/desktop/memory/MemoryRobot.h"

#include "platform/Letters.h"
#include "tests/desktop/memory/MemoryForm.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <iterator>
#include <utility>

namespace tollvane::test {

namespace {

constexpr int kNoCharacter = -1;
/// What brings a character that is on no key, such as an input method.
constexpr std::pair<int, int> kNoKey{0xE7, 0};

/// A key of the American keyboard: its code and the characters it gives without and with Shift.
struct Key {
    int code;
    char plain;
    char shifted;
};

constexpr Key kSigns[] = {
    {0x20, ' ', ' '}, {0xBA, ';', ':'},  {0xBB, '=', '+'}, {0xBC, ',', '<'}, {0xBD, '-', '_'},
    {0xBE, '.', '>'}, {0xBF, '/', '?'},  {0xC0, '`', '~'}, {0xDB, '[', '{'}, {0xDC, '\\', '|'},
    {0xDD, ']', '}'}, {0xDE, '\'', '"'}, {'0', '0', ')'},  {'1', '1', '!'},  {'2', '2', '@'},
    {'3', '3', '#'},  {'4', '4', '$'},   {'5', '5', '%'},  {'6', '6', '^'},  {'7', '7', '&'},
    {'8', '8', '*'},  {'9', '9', '('},   {8, '\b', '\b'},  {13, '\r', '\r'}, {27, '\x1b', '\x1b'},
};

bool isLetter(int code) {
    return code >= 'A' && code <= 'Z';
}

/// The character that a key brings with it.
int characterOf(int keyCode, int shift) {
    const bool control = (shift & shiftmask::control) != 0;
    const bool alt = (shift & shiftmask::alt) != 0;
    const bool shifted = (shift & shiftmask::shift) != 0;
    if (alt) {
        return kNoCharacter;
    }
    if (isLetter(keyCode)) {
        return control ? keyCode - 'A' + 1 : keyCode + (shifted ? 0 : 'a' - 'A');
    }
    const auto* key = std::find_if(std::begin(kSigns), std::end(kSigns),
                                   [&](const Key& k) { return k.code == keyCode; });
    if (key == std::end(kSigns) || control) {
        return kNoCharacter;
    }
    return static_cast<unsigned char>(shifted ? key->shifted : key->plain);
}

/// The key that types a character, with its Shift; 0 when the keyboard has none.
std::pair<int, int> keyOf(char character) {
    const auto code = static_cast<unsigned char>(character);
    if (code < 0x80 && std::isalpha(code) != 0) {
        return {std::toupper(code), std::isupper(code) != 0 ? shiftmask::shift : 0};
    }
    for (const Key& key : kSigns) {
        if (key.plain == character || key.shifted == character) {
            return {key.code, key.plain == character ? 0 : shiftmask::shift};
        }
    }
    return kNoKey;
}

} // namespace

MemoryForm* MemoryRobot::active() {
    if (forms_.active() == nullptr) {
        ADD_FAILURE() << "no form takes keys";
    }
    return forms_.active();
}

MemoryForm* MemoryRobot::reach(Form& form) {
    auto& memoryForm = dynamic_cast<MemoryForm&>(form);
    if (!forms_.takesInput(memoryForm)) {
        return nullptr;
    }
    forms_.activate(memoryForm);
    return &memoryForm;
}

void MemoryRobot::typeText(std::string_view text) {
    while (!text.empty()) {
        const int character = typedKey(text);
        const bool isLong = character > kLargestByte;
        const auto [code, shift] = isLong ? kNoKey : keyOf(static_cast<char>(character));
        text.remove_prefix(isLong ? 2 : 1);
        if (MemoryForm* form = active()) {
            form->keyStroke(code, shift, character);
        }
    }
}

void MemoryRobot::key(int keyCode, int shift) {
    if (MemoryForm* form = active()) {
        const int character = characterOf(keyCode, shift);
        form->keyStroke(keyCode, shift, character);
    }
}

void MemoryRobot::tab() {
    if (MemoryForm* form = active()) {
        form->tab(true);
    }
}

void MemoryRobot::shiftTab() {
    if (MemoryForm* form = active()) {
        form->tab(false);
    }
}

void MemoryRobot::accessKey(char letter) {
    if (MemoryForm* form = active()) {
        form->accessKey(letter);
    }
}

void MemoryRobot::click(Form& form, std::string_view control, int index) {
    if (MemoryForm* reached = reach(form)) {
        reached->click(reached->core(control, index));
    }
}

void MemoryRobot::doubleClickBackground(Form& form) {
    MemoryForm* reached = reach(form);
    if (reached != nullptr && form.on.doubleClick) {
        reached->runHandler("DblClick", form.on.doubleClick);
    }
}

void MemoryRobot::chooseItem(Form& form, std::string_view comboBox, int entry) {
    MemoryForm* reached = reach(form);
    if (reached == nullptr) {
        return;
    }
    auto& combo = dynamic_cast<MemoryComboBox&>(reached->core(comboBox, -1));
    if (combo.usable() && reached->moveFocusByUser(combo)) {
        combo.choose(entry);
    }
}

void MemoryRobot::paste(std::string_view text) {
    forms_.clipboard = text;
    if (MemoryForm* form = active()) {
        form->paste();
    }
}

void MemoryRobot::pasteWithKeys(std::string_view text) {
    forms_.clipboard = text;
    key('V', shiftmask::control);
}

void MemoryRobot::chooseMenu(Form& form, std::string_view item) {
    if (MemoryForm* reached = reach(form)) {
        reached->chooseMenu(item);
    }
}

void MemoryRobot::openMenu(Form& form, std::string_view menu) {
    if (MemoryForm* reached = reach(form)) {
        reached->openMenu(menu);
    }
}

void MemoryRobot::planPopUp(std::string_view item) {
    forms_.popUpPlan = item;
}

void MemoryRobot::planModal(std::function<void(Form& form)> plan) {
    forms_.modalPlans.push_back(std::move(plan));
}

void MemoryRobot::closeBox(Form& form) {
    if (MemoryForm* reached = reach(form)) {
        reached->close();
    }
}

void MemoryRobot::setWindowState(Form& form, WindowState state) {
    if (MemoryForm* reached = reach(form)) {
        reached->setWindowState(state);
    }
}

void MemoryRobot::dragCorner(Form& form, int right, int down) {
    if (MemoryForm* reached = reach(form)) {
        reached->dragCorner(right, down);
    }
}

void MemoryRobot::leaveForAnotherProgram() {
    forms_.leave();
}

void MemoryRobot::comeBackTo(Form& form) {
    reach(form);
}

void MemoryRobot::letTimePass(int milliseconds) {
    forms_.letTimePass(milliseconds);
}

std::unique_ptr<Forms> makeForms(const TestFormsSetup& setup) {
    return std::make_unique<MemoryForms>(setup);
}

std::unique_ptr<Robot> makeRobot(Forms& forms, const TestFormsSetup& /*setup*/) {
    return std::make_unique<MemoryRobot>(dynamic_cast<MemoryForms&>(forms));
}

} // namespace tollvane::test
