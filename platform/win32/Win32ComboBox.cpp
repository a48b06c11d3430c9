#include "platform/win32/Win32ComboBox.h"

#include "platform/Letters.h"

namespace tollvane::win32 {

namespace {

constexpr int kShownItems = 12; // of the open list; more of them scroll
constexpr long kNoSuchItem = 381;
constexpr auto kClosedEntry = static_cast<WPARAM>(-1); // the entry that the closed list shows

/// Keys that would open the list or move its selection.
bool changesSelection(WPARAM key) {
    return key == VK_F4 || (key >= VK_PRIOR && key <= VK_DOWN);
}

} // namespace

Win32ComboBox::Win32ComboBox(FormCore& form, const ControlDescription& description)
    : ControlOf(form, description) {
    createWindow("COMBOBOX", "", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_HASSTRINGS);
}

void Win32ComboBox::clear() {
    native(CB_RESETCONTENT, 0, 0);
    lastIndex_ = -1;
    InvalidateRect(window(), nullptr, TRUE);
}

void Win32ComboBox::addItem(const std::string& text, std::int32_t itemData) {
    const LRESULT place = native(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    native(CB_SETITEMDATA, static_cast<WPARAM>(place), itemData);
}

int Win32ComboBox::count() const {
    return static_cast<int>(native(CB_GETCOUNT, 0, 0));
}

void Win32ComboBox::demandItem(int index) const {
    if (index < 0 || index >= count()) {
        throw Error(kNoSuchItem, controlName(), "Invalid property array index");
    }
}

std::string Win32ComboBox::itemText(int index) const {
    demandItem(index);
    const auto item = static_cast<WPARAM>(index);
    std::string text(static_cast<std::size_t>(native(CB_GETLBTEXTLEN, item, 0)) + 1, '\0');
    const LRESULT length = native(CB_GETLBTEXT, item, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

std::int32_t Win32ComboBox::itemData(int index) const {
    demandItem(index);
    return static_cast<std::int32_t>(native(CB_GETITEMDATA, static_cast<WPARAM>(index), 0));
}

int Win32ComboBox::listIndex() const {
    return static_cast<int>(native(CB_GETCURSEL, 0, 0));
}

void Win32ComboBox::setListIndex(int index) {
    if (index < -1 || index >= count()) {
        throw Error(errornumber::invalidPropertyValue, controlName(), "Invalid property value");
    }
    if (listIndex() == index) {
        return;
    }
    native(CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    lastIndex_ = index;
    if (index >= 0) {
        raise(on.click);
    }
}

std::string Win32ComboBox::text() const {
    const int selected = listIndex();
    return selected < 0 ? std::string() : itemText(selected);
}

void Win32ComboBox::place() {
    if (!window()) {
        return;
    }
    const RECT at = form().pixels(bounds_);
    const int height = at.bottom - at.top;
    const auto listEntry = static_cast<int>(native(CB_GETITEMHEIGHT, 0, 0));
    const auto move = [&] {
        SetWindowPos(window(), nullptr, at.left, at.top, at.right - at.left,
                     height + (kShownItems * listEntry) + 2, SWP_NOZORDER | SWP_NOACTIVATE);
    };
    // The closed height is that of an entry and the system's own border, which only shows now.
    native(CB_SETITEMHEIGHT, kClosedEntry, height);
    move();
    RECT now{};
    GetWindowRect(window(), &now);
    native(CB_SETITEMHEIGHT, kClosedEntry, 2 * height - (now.bottom - now.top));
    move();
    form().toolTips.update(*this);
}

bool Win32ComboBox::keepsEnterAndEscape() const {
    return native(CB_GETDROPPEDSTATE, 0, 0) != FALSE;
}

void Win32ComboBox::typed(int character, LPARAM info) {
    if (!locked_ && character <= kLargestByte) {
        native(WM_CHAR, static_cast<WPARAM>(character), info);
    }
}

void Win32ComboBox::command(WORD code) {
    if (code != CBN_SELCHANGE) {
        return;
    }
    const int selected = listIndex();
    if (selected >= 0 && selected != std::exchange(lastIndex_, selected)) {
        raise(on.click);
    }
}

LRESULT Win32ComboBox::handle(UINT message, WPARAM first, LPARAM second) {
    if (locked_) {
        const bool key = message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
        const bool mouse =
            message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK || message == WM_MOUSEWHEEL;
        if (mouse || (key && changesSelection(first))) {
            return 0;
        }
    }
    return ControlOf::handle(message, first, second);
}

} // namespace tollvane::win32
