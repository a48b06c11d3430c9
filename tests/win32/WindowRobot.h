#pragma once

#include "platform/win32/Win32Form.h"
#include "tests/desktop/Robot.h"
#include "tests/win32/OtherProgram.h"
#include "tests/win32/WindowForms.h"

#include <deque>
#include <optional>
#include <string>

namespace tollvane::test {

class FakeClock;

/// The user of real windows: posts what the keyboard and the mouse would, and lets the message pump
/// of the program handle it.
class WindowRobot : public Robot {
public:
    WindowRobot(WindowForms& forms, FakeClock& clock);
    ~WindowRobot() override;

    void typeText(std::string_view text) override;
    void key(int keyCode, int shift) override;
    void tab() override;
    void shiftTab() override;
    void accessKey(char letter) override;
    void click(Form& form, std::string_view control, int index) override;
    void doubleClickBackground(Form& form) override;
    void chooseItem(Form& form, std::string_view comboBox, int entry) override;
    void paste(std::string_view text) override;
    void pasteWithKeys(std::string_view text) override;
    void chooseMenu(Form& form, std::string_view item) override;
    void openMenu(Form& form, std::string_view menu) override;
    void planPopUp(std::string_view item) override { popUpPlan_ = item; }
    void planModal(std::function<void(Form& form)> plan) override;
    void closeBox(Form& form) override;
    void setWindowState(Form& form, WindowState state) override;
    void dragCorner(Form& form, int right, int down) override;
    void leaveForAnotherProgram() override;
    void comeBackTo(Form& form) override;
    void letTimePass(int milliseconds) override;

private:
    static win32::Win32Form* formOf(HWND window);
    /// What the keyboard sends along with a key that goes down once.
    static LPARAM keyInfo(UINT key);
    /// The form when the mouse can reach it (which makes it the active one), else null.
    win32::Win32Form* reach(Form& form);
    /// Handles everything that is waiting.
    void settle();
    void stroke(int keyCode, int shift);
    void inputMethod(char character);
    void mouseClick(HWND window, POINT place);
    bool openMenusAbove(const win32::Win32Form& form, const win32::Win32MenuItem& item);
    bool waitUntil(const std::function<bool()>& condition);
    void fillClipboard(std::string_view text);

    static void CALLBACK rang(HWND window, UINT message, UINT_PTR timer, DWORD time);
    /// Runs the plan of a modal form that has been opened, and acts in a pop-up menu.
    void lookAround();
    void followModalPlan(Form& form);
    void actInPopUp(HWND owner);

    WindowForms& forms_;
    FakeClock& clock_;
    std::optional<OtherProgram> other_;
    win32::WindowHandle watch_; ///< its timer rings in every message loop, modal ones too
    std::deque<std::function<void(Form&)>> modalPlans_;
    std::size_t modalsFollowed_ = 0;
    std::string popUpPlan_;
    bool inPopUp_ = false;
};

} // namespace tollvane::test
