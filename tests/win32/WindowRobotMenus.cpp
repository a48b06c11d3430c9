// The user's way with menus.
#include "tests/win32/WindowRobot.h"

#include <algorithm>

namespace tollvane::test {

using win32::Win32Form;
using win32::Win32MenuItem;

namespace {

Win32MenuItem* menuItem(const Win32Form& form, std::string_view name) {
    const auto& items = form.menus().items();
    const auto found = std::find_if(items.begin(), items.end(),
                                    [name](const auto& item) { return item->name() == name; });
    return found == items.end() ? nullptr : found->get();
}

/// The item that opens the menu in which `item` stands, or null.
Win32MenuItem* parentOf(const Win32Form& form, const Win32MenuItem& item) {
    for (const auto& candidate : form.menus().items()) {
        const auto& children = candidate->children;
        if (std::find(children.begin(), children.end(), &item) != children.end()) {
            return candidate.get();
        }
    }
    return nullptr;
}

/// What the system's own menu says of an entry; nothing when it is not in the menu.
std::optional<UINT> shownState(HMENU menu, UINT id) {
    MENUITEMINFOA info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_STATE | MIIM_ID;
    for (int place = 0; place < GetMenuItemCount(menu); ++place) {
        if (GetMenuItemInfoA(menu, static_cast<UINT>(place), TRUE, &info) && info.wID == id) {
            return info.fState;
        }
    }
    return std::nullopt;
}

bool canBeChosen(HMENU menu, UINT id) {
    const auto state = shownState(menu, id);
    return state && !(*state & MFS_DISABLED);
}

/// How often the down key is pressed in the open menu until the entry is reached.
int stepsTo(HMENU menu, UINT id) {
    int steps = 0;
    MENUITEMINFOA info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_ID;
    for (int place = 0; place < GetMenuItemCount(menu); ++place) {
        GetMenuItemInfoA(menu, static_cast<UINT>(place), TRUE, &info);
        steps += info.fType & MFT_SEPARATOR ? 0 : 1;
        if (info.wID == id) {
            break;
        }
    }
    return steps;
}

} // namespace

void WindowRobot::actInPopUp(HWND owner) {
    const Win32Form& form = *formOf(owner);
    const std::string planned = std::exchange(popUpPlan_, {});
    Win32MenuItem* const item = planned.empty() ? nullptr : menuItem(form, planned);
    const Win32MenuItem* const parent = item ? parentOf(form, *item) : nullptr;
    if (!parent || !canBeChosen(parent->opens(), item->id())) {
        EndMenu(); // also one that opened from the bar
        return;
    }
    for (int step = stepsTo(parent->opens(), item->id()); step > 0; --step) {
        PostMessageA(owner, WM_KEYDOWN, VK_DOWN, keyInfo(VK_DOWN));
    }
    PostMessageA(owner, WM_KEYDOWN, VK_RETURN, keyInfo(VK_RETURN));
}

bool WindowRobot::openMenusAbove(const Win32Form& form, const Win32MenuItem& item) {
    Win32MenuItem* const parent = parentOf(form, item);
    if (!parent) {
        return true;
    }
    const Win32MenuItem* const above = parentOf(form, *parent);
    if (!openMenusAbove(form, *parent) || !parent->enabled() ||
        (above && !canBeChosen(above->opens(), parent->id()))) {
        return false;
    }
    SendMessageA(form.window(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(parent->opens()), 0);
    settle();
    return form.isOpen();
}

void WindowRobot::chooseMenu(Form& form, std::string_view item) {
    const Win32Form* const reached = reach(form);
    const Win32MenuItem* const wanted = reached ? menuItem(*reached, item) : nullptr;
    if (!wanted || !openMenusAbove(*reached, *wanted)) {
        return;
    }
    const Win32MenuItem* const parent = parentOf(*reached, *wanted);
    const HMENU menu = parent ? parent->opens() : GetMenu(reached->window());
    if (!wanted->opens() && canBeChosen(menu, wanted->id())) {
        PostMessageA(reached->window(), WM_COMMAND, wanted->id(), 0);
        settle();
    }
}

void WindowRobot::openMenu(Form& form, std::string_view menu) {
    const Win32Form* const reached = reach(form);
    const Win32MenuItem* const wanted = reached ? menuItem(*reached, menu) : nullptr;
    if (wanted && openMenusAbove(*reached, *wanted) && wanted->enabled() && wanted->visible() &&
        wanted->opens()) {
        SendMessageA(reached->window(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(wanted->opens()),
                     0);
        settle();
    }
}

} // namespace tollvane::test
