#pragma once

#include "tests/desktop/memory/MemoryControls.h"
#include "tests/desktop/memory/MemoryForms.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tollvane::test {

/// A form in memory. The public part behind the Form interface is what a user and the window system
/// do to it.
class MemoryForm : public Form {
public:
    MemoryForm(MemoryForms& host, const FormDescription& description);
    ~MemoryForm() override;

    Control& find(std::string_view name, int index) override { return core(name, index).control(); }
    std::span<Control* const> controls() override { return view_; }
    Control* activeControl() override { return active_ ? &active_->control() : nullptr; }
    WindowNumber handle() const override { return closed_ ? 0 : handle_; }
    std::string caption() const override { return caption_; }
    void setCaption(const std::string& caption) override;
    int left() const override { return left_; }
    int top() const override { return top_; }
    void move(int left, int top) override;
    WindowState windowState() const override { return state_; }
    MousePointer mousePointer() const override { return pointer_; }
    void setMousePointer(MousePointer pointer) override { pointer_ = pointer; }
    void setKeyPreview(bool preview) override { keyPreview_ = preview; }
    void show() override;
    void showModal(Form* owner) override;
    bool isOpen() const override { return shown_ && !closed_; }
    void close() override;
    void popUpMenu(std::string_view menuName) override;
    void refresh() override {}

    const std::string& name() const { return name_; }
    MemoryForms& host() { return host_; }
    ControlCore* activeCore() const { return active_; }
    ControlCore& core(std::string_view name, int index);
    std::vector<MemoryOptionButton*> optionArray(const std::string& name) const;
    const std::vector<MemoryTimer*>& timers() const { return timers_; }
    void runHandler(const std::string& where, const std::function<void()>& body);
    void setWindowState(WindowState state) { state_ = state; }
    /// The described size is the smallest.
    void dragCorner(int right, int down);

    // Focus
    void becameActive();
    void becameUnusable(ControlCore& core);
    /// From code: no validation.
    void changeFocus(ControlCore& to);
    /// By the user: the control that is left may refuse. True when the focus has arrived, or when a
    /// handler sent it back from a button, which is pressed all the same.
    bool moveFocusByUser(ControlCore& to);
    /// Asks the active control's validation whether it may be left.
    bool validated();
    void tab(bool forward);
    void accessKey(char letter);
    void click(ControlCore& core);

    // Keys
    /// `character` is the key's character, or -1 when it has none.
    void keyStroke(int keyCode, int shift, int character);
    void paste();

    // Menus
    /// Opens the menus on the way to the item and the item itself; an empty list of names when a
    /// menu on the way cannot be opened.
    bool openMenusAbove(const MemoryMenuItem& item);
    void chooseMenu(std::string_view item);
    void openMenu(std::string_view menu);

private:
    void addControls(const FormDescription& description);
    void addMenus(const FormDescription& description);
    bool keyDown(ControlCore* target, int& keyCode, int shift);
    bool keyPress(ControlCore* target, int& ascii);
    void enter(ControlCore* target);
    void press(const std::string& button);
    ControlCore* withAccessKey(char letter) const;
    bool isTabStop(const ControlCore& core) const;
    ControlCore* nextStop(std::size_t from, bool forward) const;
    MemoryMenuItem& menuItem(std::string_view name);
    bool hasMenuBelow(const MemoryMenuItem& item) const;
    std::vector<MemoryMenuItem*> menusAbove(const MemoryMenuItem& item) const;

    MemoryForms& host_;
    WindowNumber handle_;
    std::string name_;
    std::string caption_;
    std::string defaultButton_;
    std::string cancelButton_;
    std::vector<std::unique_ptr<ControlCore>> cores_;
    std::vector<Control*> view_;
    std::vector<MemoryTimer*> timers_;
    std::vector<MemoryMenuItem*> menus_;
    ControlCore* active_ = nullptr;
    std::size_t lastPosition_ = 0; ///< of the control that had the focus last
    bool resizable_;
    int wider_ = 0; ///< than described
    int taller_ = 0;
    int left_ = 0;
    int top_ = 0;
    WindowState state_ = WindowState::normal;
    MousePointer pointer_ = MousePointer::standard;
    bool keyPreview_ = false;
    bool loaded_ = false;
    bool shown_ = false;
    bool everActive_ = false;
    bool closing_ = false;
    bool closed_ = false;
};

} // namespace tollvane::test
