#pragma once

#include "platform/win32/ControlOf.h"

#include <memory>
#include <span>
#include <vector>

namespace tollvane::win32 {

/// One entry of a menu. It has no window; its menu draws it.
class Win32MenuItem final : public CaptionedOf<MenuItem> {
public:
    Win32MenuItem(FormCore& form, const MenuDescription& description, UINT id,
                  Win32MenuItem* parent, HMENU bar);

    void setEnabled(bool enabled) override;
    void setVisible(bool visible) override;
    void setCaption(const std::string& caption) override;
    bool checked() const override { return checked_; }
    void setChecked(bool checked) override;
    void place() override {}

    UINT id() const { return id_; }
    /// The menu that this entry opens, or null.
    HMENU opens() const { return opens_.get(); }
    void open() { opens_.reset(CreatePopupMenu()); }
    void choose() { raise(on.click); }

    /// Puts the entry into its menu, behind its visible elder siblings.
    void insert();
    void remove();
    /// Becomes the youngest of these siblings.
    void joins(std::vector<Win32MenuItem*>& siblings) {
        siblings_ = &siblings;
        siblings.push_back(this);
    }
    std::vector<Win32MenuItem*> children;

private:
    HMENU menu() const;
    /// Where the entry stands, or would stand, in its menu.
    UINT position() const;
    MENUITEMINFOA info();
    void changed();

    UINT id_;
    Win32MenuItem* parent_;
    HMENU bar_;
    MenuHandle opens_;
    bool checked_ = false;
    bool inserted_ = false;
    std::vector<Win32MenuItem*>* siblings_ = nullptr;
};

/// The menu bar and the pop-up menus of a form.
class FormMenus {
public:
    FormMenus(FormCore& form, std::span<const MenuDescription> descriptions);
    FormMenus(const FormMenus&) = delete;
    FormMenus& operator=(const FormMenus&) = delete;
    ~FormMenus();

    const std::vector<std::unique_ptr<Win32MenuItem>>& items() const { return items_; }
    /// Shows the bar in the form's window, when there is anything to show.
    void attach();
    /// Takes the bar off the window, so that the window does not destroy it.
    void detach();
    bool hasBar() const;

    /// The entry with that id was chosen.
    void chosen(UINT id);
    /// The menu is about to open.
    void opening(HMENU menu);
    /// Opens a hidden level-0 menu at the mouse and acts on the choice.
    void popUp(std::string_view name);

private:
    FormCore& form_;
    MenuHandle bar_;
    std::vector<std::unique_ptr<Win32MenuItem>> items_;
    std::vector<Win32MenuItem*> topLevel_;
};

} // namespace tollvane::win32
