#pragma once

#include "platform/Form.h"

#include <functional>
#include <string_view>

namespace tollvane::test {

/// Virtual key codes that the robot presses; letters and digits are their capital's own code.
namespace keycode {
inline constexpr int backspace = 8;
inline constexpr int enter = 13;
inline constexpr int escape = 27;
inline constexpr int space = 32;
inline constexpr int end = 35;
inline constexpr int home = 36;
inline constexpr int left = 37;
inline constexpr int up = 38;
inline constexpr int right = 39;
inline constexpr int down = 40;
inline constexpr int deleteKey = 46;
inline constexpr int f1 = 112;
} // namespace keycode

/// A user at the desktop, the same one for both desktops. Keys go to the control that has the focus
/// in the active form. A call returns when everything that it set off has happened. What came of it
/// is read through the Form port.
class Robot {
public:
    Robot() = default;
    Robot(const Robot&) = delete;
    Robot& operator=(const Robot&) = delete;
    virtual ~Robot() = default;

    /// Types 8-bit characters one by one, each with its key-down; '\b', '\r' and '\x1b' are
    /// Backspace, Enter and Escape.
    virtual void typeText(std::string_view text) = 0;
    /// Presses one key while holding the keys of `shift` (a sum of shiftmask values); the key
    /// brings its character with it where it has one. Not for Tab and access keys.
    virtual void key(int keyCode, int shift = 0) = 0;
    virtual void tab() = 0;
    virtual void shiftTab() = 0;
    /// Alt + letter, in the active form.
    virtual void accessKey(char letter) = 0;

    /// Clicks into the middle of a control; a text box then has its caret behind its text.
    virtual void click(Form& form, std::string_view control, int index = -1) = 0;
    virtual void doubleClickBackground(Form& form) = 0;
    /// Picks an entry of a list with the mouse.
    virtual void chooseItem(Form& form, std::string_view comboBox, int entry) = 0;
    /// Pastes a text into the focused control by its context menu (no key is pressed).
    virtual void paste(std::string_view text) = 0;
    /// Pastes with Ctrl + V.
    virtual void pasteWithKeys(std::string_view text) = 0;

    /// Opens the menus on the way (their click says that they open) and chooses the item. A
    /// disabled or hidden item is not chosen.
    virtual void chooseMenu(Form& form, std::string_view item) = 0;
    /// Opens a menu, looks at it and closes it again without choosing.
    virtual void openMenu(Form& form, std::string_view menu) = 0;
    /// The item that will be chosen from the next pop-up menu; empty dismisses it. A pop-up menu
    /// for which nothing was planned is dismissed too.
    virtual void planPopUp(std::string_view item) = 0;

    /// What to do while the next modal form is open, once it has been activated. One plan for each
    /// modal form, in their order. A form that is still open after its plan fails the test and is
    /// closed.
    virtual void planModal(std::function<void(Form& form)> plan) = 0;

    virtual void closeBox(Form& form) = 0;
    /// Minimises, maximises or restores the form, as a user or the window manager does.
    virtual void setWindowState(Form& form, WindowState state) = 0;
    /// Makes another program's window the active one, and comes back.
    /// Drags the lower right corner of a resizable form by so many design units.
    virtual void dragCorner(Form& form, int right, int down) = 0;
    virtual void leaveForAnotherProgram() = 0;
    virtual void comeBackTo(Form& form) = 0;

    /// Lets timers run for that long.
    virtual void letTimePass(int milliseconds) = 0;
};

} // namespace tollvane::test
