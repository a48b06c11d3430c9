#pragma once

#include "tests/desktop/Robot.h"
#include "tests/desktop/memory/MemoryForms.h"

namespace tollvane::test {

/// The user of the in-memory desktop.
class MemoryRobot : public Robot {
public:
    explicit MemoryRobot(MemoryForms& forms) : forms_(forms) {}

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
    void planPopUp(std::string_view item) override;
    void planModal(std::function<void(Form& form)> plan) override;
    void closeBox(Form& form) override;
    void setWindowState(Form& form, WindowState state) override;
    void dragCorner(Form& form, int right, int down) override;
    void leaveForAnotherProgram() override;
    void comeBackTo(Form& form) override;
    void letTimePass(int milliseconds) override;

private:
    /// The form that gets the keys; fails the test when there is none.
    MemoryForm* active();
    /// The form when the mouse can reach it (which makes it the active one), else null.
    MemoryForm* reach(Form& form);

    MemoryForms& forms_;
};

} // namespace tollvane::test
