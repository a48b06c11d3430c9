#include "platform/win32/Win32StatusBar.h"

#include <commctrl.h>

#include <algorithm>

namespace tollvane::win32 {

namespace {
constexpr long kElementNotFound = 35601;
} // namespace

Win32StatusBar::Win32StatusBar(FormCore& form, const ControlDescription& description,
                               std::span<const PanelDescription> panels)
    : ControlOf(form, description) {
    for (const PanelDescription& panel : panels) {
        panels_.push_back({std::string(panel.key), panel.width, {}});
    }
    createWindow(STATUSCLASSNAMEA, "",
                 CCS_BOTTOM | (form.resizable ? static_cast<DWORD>(SBARS_SIZEGRIP) : 0));
}

std::size_t Win32StatusBar::placeOf(std::string_view key) const {
    const auto found = std::find_if(panels_.begin(), panels_.end(),
                                    [key](const Panel& panel) { return panel.key == key; });
    if (found == panels_.end()) {
        throw Error(kElementNotFound, controlName(), "Element not found");
    }
    return static_cast<std::size_t>(found - panels_.begin());
}

std::string Win32StatusBar::panelText(std::string_view key) const {
    return panels_[placeOf(key)].text;
}

void Win32StatusBar::setPanelText(std::string_view key, const std::string& text) {
    const std::size_t place = placeOf(key);
    panels_[place].text = text;
    send(SB_SETTEXTA, place, reinterpret_cast<LPARAM>(panels_[place].text.c_str()));
}

void Win32StatusBar::refresh() {
    if (window()) {
        RedrawWindow(window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    }
}

void Win32StatusBar::place() {
    send(WM_SIZE); // moves itself to the lower edge
    if (!window() || panels_.empty()) {
        return;
    }
    RECT client{};
    GetClientRect(form().window(), &client);
    int taken = 0;
    for (const Panel& panel : panels_) {
        taken += scaled(panel.width, form().dpi());
    }
    std::vector<int> edges;
    int edge = 0;
    for (const Panel& panel : panels_) {
        edge += panel.width > 0 ? scaled(panel.width, form().dpi())
                                : std::max(0, static_cast<int>(client.right) - taken);
        edges.push_back(edge);
    }
    send(SB_SETPARTS, edges.size(), reinterpret_cast<LPARAM>(edges.data()));
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        send(SB_SETTEXTA, i, reinterpret_cast<LPARAM>(panels_[i].text.c_str()));
    }
}

} // namespace tollvane::win32
