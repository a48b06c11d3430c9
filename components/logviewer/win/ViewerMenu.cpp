#include "components/logviewer/win/ViewerMenu.h"

#include <iterator>

namespace tollvane::logviewer {

namespace {

struct Item {
    const wchar_t* caption; // null for a separator
    Command command;
};

// No number of a command: it would turn that command's key off.
constexpr Item separator{nullptr, Command{}};

constexpr Item logItems[] = {{L"&Open...\tCtrl+O", commandOpen},
                             {L"&Read Again\tF5", commandReload},
                             separator,
                             {L"E&xit\tAlt+F4", commandExit}};
constexpr Item editItems[] = {{L"&Copy\tCtrl+C", commandCopy},
                              {L"Select &All\tCtrl+A", commandSelectAll},
                              separator,
                              {L"C&lear Filter\tCtrl+L", commandClear}};

template <std::size_t count>
void addMenu(HMENU bar, const wchar_t* caption, const Item (&items)[count]) {
    const HMENU menu = CreatePopupMenu();
    for (const Item& item : items)
        AppendMenuW(menu, item.caption ? MF_STRING : MF_SEPARATOR,
                    static_cast<UINT_PTR>(item.command), item.caption);
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu), caption);
}

} // namespace

HMENU viewerMenu() {
    const HMENU bar = CreateMenu();
    addMenu(bar, L"&Log", logItems);
    addMenu(bar, L"&Edit", editItems);
    return bar;
}

HACCEL viewerKeys() {
    ACCEL keys[] = {{FVIRTKEY | FCONTROL, 'O', commandOpen},
                    {FVIRTKEY, VK_F5, commandReload},
                    {FVIRTKEY | FCONTROL, 'C', commandCopy},
                    {FVIRTKEY | FCONTROL, 'A', commandSelectAll},
                    {FVIRTKEY | FCONTROL, 'L', commandClear}};
    return CreateAcceleratorTableW(keys, static_cast<int>(std::size(keys)));
}

} // namespace tollvane::logviewer
