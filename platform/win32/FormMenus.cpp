#include "platform/win32/FormMenus.h"

#include <algorithm>

namespace tollvane::win32 {

namespace {

constexpr UINT kFirstId = 1000;

ControlDescription asControl(const MenuDescription& description) {
    ControlDescription control;
    control.kind = ControlKind::menuItem;
    control.name = description.name;
    control.caption = description.caption;
    control.visible = description.visible;
    return control;
}

void empty(HMENU menu) {
    while (menu && RemoveMenu(menu, 0, MF_BYPOSITION)) {
    }
}

} // namespace

Win32MenuItem::Win32MenuItem(FormCore& form, const MenuDescription& description, UINT id,
                             Win32MenuItem* parent, HMENU bar)
    : CaptionedOf(form, asControl(description)), id_(id), parent_(parent), bar_(bar) {}

HMENU Win32MenuItem::menu() const {
    return parent_ ? parent_->opens() : bar_;
}

UINT Win32MenuItem::position() const {
    const auto end = std::find(siblings_->begin(), siblings_->end(), this);
    return static_cast<UINT>(std::count_if(
        siblings_->begin(), end, [](const Win32MenuItem* one) { return one->inserted_; }));
}

MENUITEMINFOA Win32MenuItem::info() {
    const bool separator = captionText() == "-";
    MENUITEMINFOA info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_ID | MIIM_STATE | MIIM_FTYPE | MIIM_SUBMENU | (separator ? 0 : MIIM_STRING);
    info.fType = separator ? MFT_SEPARATOR : MFT_STRING;
    info.fState = (enabled_ ? 0U : static_cast<UINT>(MFS_DISABLED)) |
                  (checked_ ? static_cast<UINT>(MFS_CHECKED) : 0U);
    info.wID = id_;
    info.hSubMenu = opens();
    info.dwTypeData = const_cast<char*>(captionText().c_str()); // copied by the system
    return info;
}

void Win32MenuItem::insert() {
    const MENUITEMINFOA entry = info();
    inserted_ = InsertMenuItemA(menu(), position(), TRUE, &entry) != FALSE;
}

void Win32MenuItem::remove() {
    if (inserted_) {
        RemoveMenu(menu(), position(), MF_BYPOSITION);
        inserted_ = false;
    }
}

void Win32MenuItem::changed() {
    if (inserted_) {
        const MENUITEMINFOA entry = info();
        SetMenuItemInfoA(menu(), position(), TRUE, &entry);
    }
    if (!parent_ && form().window()) {
        DrawMenuBar(form().window());
    }
}

void Win32MenuItem::setEnabled(bool enabled) {
    if (enabled_ != enabled) {
        enabled_ = enabled;
        changed();
    }
}

void Win32MenuItem::setVisible(bool visible) {
    if (visible_ != visible) {
        visible_ = visible;
        visible ? insert() : remove();
        changed();
    }
}

void Win32MenuItem::setCaption(const std::string& caption) {
    CaptionedOf::setCaption(caption);
    changed();
}

void Win32MenuItem::setChecked(bool checked) {
    if (checked_ != checked) {
        checked_ = checked;
        changed();
    }
}

FormMenus::FormMenus(FormCore& form, std::span<const MenuDescription> descriptions)
    : form_(form), bar_(descriptions.empty() ? nullptr : CreateMenu()) {
    std::vector<Win32MenuItem*> road; // the entries above the one that is built
    for (const MenuDescription& description : descriptions) {
        road.resize(static_cast<std::size_t>(description.level));
        Win32MenuItem* const parent = road.empty() ? nullptr : road.back();
        items_.push_back(std::make_unique<Win32MenuItem>(
            form, description, kFirstId + static_cast<UINT>(items_.size()), parent, bar_.get()));
        Win32MenuItem* const item = items_.back().get();
        if (parent && !parent->opens()) {
            parent->open();
        }
        item->joins(parent ? parent->children : topLevel_);
        road.push_back(item);
    }
    // Now every entry knows whether it opens a menu.
    for (const auto& item : items_) {
        if (item->visible()) {
            item->insert();
        }
    }
}

FormMenus::~FormMenus() {
    // Each menu has its own owner here: taken apart first, none is destroyed twice.
    detach();
    for (const auto& item : items_) {
        empty(item->opens());
    }
    empty(bar_.get());
}

bool FormMenus::hasBar() const {
    return bar_ && GetMenuItemCount(bar_.get()) > 0;
}

void FormMenus::attach() {
    if (hasBar()) {
        SetMenu(form_.window(), bar_.get());
    }
}

void FormMenus::detach() {
    if (form_.window()) {
        SetMenu(form_.window(), nullptr);
    }
}

void FormMenus::chosen(UINT id) {
    const std::size_t place = id - kFirstId;
    if (id >= kFirstId && place < items_.size()) {
        items_[place]->choose();
    }
}

void FormMenus::opening(HMENU menu) {
    const auto found = std::find_if(items_.begin(), items_.end(),
                                    [menu](const auto& item) { return item->opens() == menu; });
    if (menu && found != items_.end()) {
        (*found)->choose();
    }
}

void FormMenus::popUp(std::string_view name) {
    const auto found = std::find_if(items_.begin(), items_.end(),
                                    [name](const auto& item) { return item->name() == name; });
    if (found == items_.end() || !(*found)->opens() || !form_.window()) {
        throw Error(errornumber::invalidProcedureCall, std::string(name),
                    "Invalid procedure call or argument");
    }
    POINT mouse{};
    GetCursorPos(&mouse);
    const int choice = TrackPopupMenu((*found)->opens(), TPM_RETURNCMD | TPM_RIGHTBUTTON, mouse.x,
                                      mouse.y, 0, form_.window(), nullptr);
    chosen(static_cast<UINT>(choice));
}

} // namespace tollvane::win32
