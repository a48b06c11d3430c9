// A modal dialog drawn from a table, in the system's own dialog font, right at every resolution.
//
// Rules that the tables follow: positions are dialog units; the label of a control stands
// immediately before it (it names the control and carries its access key); the order of the table
// is the tab order; DefaultButton with id IDOK, CancelButton with id IDCANCEL.
#pragma once

#include <windows.h>

#include <span>
#include <string>
#include <string_view>

namespace tollvane::com {

enum class DialogItem {
    Label,
    Note, // a label in which "&" is an ordinary character and lines are broken
    Group,
    TextBox,
    PasswordBox,
    NumberBox, // digits only
    ReadOnlyBox,
    CheckBox,
    ComboBox, // a choice from a list
    ListBox,
    TableList, // a list whose entries have columns; LB_SETTABSTOPS says where they begin
    Icon,      // STM_SETICON gives it its picture
    Button,
    DefaultButton,
    CancelButton,
};

struct DialogControl {
    DialogItem item;
    int id;              // -1 for what is never asked for
    const wchar_t* name; // answered to WM_GETCONTROLNAME; "" for none
    const wchar_t* caption;
    short x, y, width, height;
    int maximumLength = 0; // of a box, in characters; 0 for the system's own limit
};

struct DialogLayout {
    const wchar_t* name; // of the dialog itself, such as "frmGateway"
    const wchar_t* caption;
    short width, height;
    std::span<const DialogControl> controls;
};

class ModalDialog {
public:
    ModalDialog(const ModalDialog&) = delete;
    ModalDialog& operator=(const ModalDialog&) = delete;
    virtual ~ModalDialog() = default;

    // Runs until the dialog closes, centred on the owner (or the screen). Answers true when it was
    // closed by OK. Raises ComponentError when it cannot be shown. No exception of a handler leaves
    // the window procedure: its text is shown in a message box and the dialog stays.
    bool run(HWND owner);

    // Has what run() will need of the system loaded (controls, fonts, theme) while there is time.
    // Nothing is shown and no handler is called; without the system's help nothing happens.
    void prepare() const noexcept;

protected:
    explicit ModalDialog(const DialogLayout& layout) : layout_(layout) {}

    // Fills the controls. The first control of the tab order gets the focus unless focus() is
    // called.
    virtual void onShow() {}
    // OK pressed: answers whether the dialog may close.
    virtual bool onOk() { return true; }
    // Any other button, check box, box or list: id and notification code (BN_CLICKED, EN_CHANGE
    // ...).
    virtual void onCommand(int id, int notification) { (void)id, (void)notification; }
    // The dialog's timer: SetTimer on window(), KillTimer to stop it.
    virtual void onTimer() {}

    HWND window() const noexcept { return window_; }
    HWND item(int id) const noexcept { return GetDlgItem(window_, id); }

    // Texts are 8-bit, in the process's code page.
    std::string text(int id) const;
    void setText(int id, std::string_view text);
    bool checked(int id) const;
    void setChecked(int id, bool checked);
    void setEnabled(int id, bool enabled);
    void addChoice(int id, std::string_view text);
    int choice(int id) const; // -1 when none is selected
    void setChoice(int id, int index);

    // Moves the focus to a control and selects the text of a box.
    void focus(int id);
    // A message box over the dialog, titled as the dialog, then focus(id) unless id is negative.
    void complain(std::string_view message, int id = -1);
    void close(bool ok);

private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR handle(UINT message, WPARAM wParam);
    void initialise();
    void centre() const;
    bool command(int id, int notification);

    const DialogLayout& layout_;
    HWND window_ = nullptr;
    HWND owner_ = nullptr;
};

} // namespace tollvane::com
