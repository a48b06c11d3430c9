#include "tests/journeys/probe/WindowTree.h"

#include "tests/journeys/probe/Remote.h"

#include <optional>
#include <string>

#include <commctrl.h>

namespace tollvane::probe {

namespace {

long long numberOf(HWND window) {
    return reinterpret_cast<LONG_PTR>(window);
}

std::wstring classOf(HWND window) {
    wchar_t name[256];
    const int length = GetClassNameW(window, name, 256);
    return {name, static_cast<std::size_t>(length)};
}

void writeRectangle(JsonWriter& json, HWND window) {
    RECT rectangle{};
    GetWindowRect(window, &rectangle);
    json.key("rect");
    json.beginArray();
    for (const LONG edge : {rectangle.left, rectangle.top, rectangle.right, rectangle.bottom}) {
        json.value(static_cast<long long>(edge));
    }
    json.endArray();
}

void writeCommon(JsonWriter& json, HWND window, const std::wstring& name,
                 const std::wstring& text) {
    json.member("hwnd", numberOf(window));
    json.member<std::wstring_view>("class", classOf(window));
    json.member<std::wstring_view>("name", name);
    json.member<std::wstring_view>("text", text);
    json.member("enabled", IsWindowEnabled(window) != FALSE);
    json.member("visible", IsWindowVisible(window) != FALSE);
    writeRectangle(json, window);
}

BOOL CALLBACK writeTopLevel(HWND window, LPARAM parameter) {
    if (IsWindowVisible(window) == FALSE) {
        return TRUE;
    }
    auto& json = *reinterpret_cast<JsonWriter*>(parameter);
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    json.beginObject();
    writeCommon(json, window, controlNameOf(window), textOf(window));
    json.member("pid", static_cast<long long>(processId));
    json.member("owner", numberOf(GetWindow(window, GW_OWNER)));
    json.member("foreground", GetForegroundWindow() == window);
    // Under Wine this is the window's id on the X display, which keystroke tools need.
    json.member("xid", static_cast<long long>(reinterpret_cast<LONG_PTR>(
                           GetPropW(window, L"__wine_x11_whole_window"))));
    json.endObject();
    return TRUE;
}

struct ControlWalk {
    JsonWriter& json;
    HWND focused;
    const Look& look;
    std::optional<std::wstring_view> wanted;
};

HWND focusOf(HWND window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
    return info.hwndFocus;
}

void writeButton(JsonWriter& json, HWND window) {
    const auto style = GetWindowLongW(window, GWL_STYLE);
    json.member("checked", ask(window, BM_GETCHECK).value_or(0) == BST_CHECKED);
    json.member("default", (style & BS_TYPEMASK) == BS_DEFPUSHBUTTON);
}

void writeStatusBar(JsonWriter& json, HWND window) {
    json.key("parts");
    json.beginArray();
    const auto count = ask(window, SB_GETPARTS).value_or(0);
    for (int part = 0; part < static_cast<int>(count); ++part) {
        json.value(std::wstring_view(statusPartOf(window, part)));
    }
    json.endArray();
}

BOOL CALLBACK writeControl(HWND window, LPARAM parameter) {
    auto& walk = *reinterpret_cast<ControlWalk*>(parameter);
    const std::wstring& name = walk.look.names.of(window);
    if (walk.wanted && name != *walk.wanted) {
        return TRUE;
    }
    const std::wstring className = classOf(window);
    walk.json.beginObject();
    writeCommon(walk.json, window, name,
                walk.look.unread.contains(name) ? starsOf(window) : textOf(window));
    walk.json.member("id", static_cast<long long>(GetDlgCtrlID(window)));
    walk.json.member("parent", numberOf(GetParent(window)));
    walk.json.member("focused", window == walk.focused);
    walk.json.member("style",
                     static_cast<long long>(static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE))));
    if (className == L"Button") {
        writeButton(walk.json, window);
    } else if (className == L"ComboBox") {
        walk.json.member("selected",
                         static_cast<long long>(ask(window, CB_GETCURSEL).value_or(-1)));
        walk.json.member("dropped", ask(window, CB_GETDROPPEDSTATE).value_or(0) != 0);
        walk.json.member("count", static_cast<long long>(ask(window, CB_GETCOUNT).value_or(-1)));
    } else if (className == L"ListBox") {
        walk.json.member("count", static_cast<long long>(ask(window, LB_GETCOUNT).value_or(-1)));
    } else if (className == STATUSCLASSNAMEW) {
        writeStatusBar(walk.json, window);
    }
    walk.json.endObject();
    return TRUE;
}

void writeWanted(JsonWriter& json, HWND window, ControlWalk walk) {
    json.beginArray();
    EnumChildWindows(window, writeControl, reinterpret_cast<LPARAM>(&walk));
    json.endArray();
}

} // namespace

void writeWindows(JsonWriter& json) {
    json.beginArray();
    EnumWindows(writeTopLevel, reinterpret_cast<LPARAM>(&json));
    json.endArray();
}

void writeControls(JsonWriter& json, HWND window, const Look& look) {
    writeWanted(json, window, {json, focusOf(window), look, std::nullopt});
}

void writeControlsNamed(JsonWriter& json, HWND window, std::wstring_view name, const Look& look) {
    writeWanted(json, window, {json, focusOf(window), look, name});
}

void writeFocused(JsonWriter& json, HWND window, Names& names) {
    const HWND focused = focusOf(window);
    json.value(std::wstring_view(focused != nullptr ? names.of(focused) : std::wstring()));
}

void writeTexts(JsonWriter& json, const std::vector<HWND>& controls) {
    const HWND focused = controls.empty() ? nullptr : focusOf(controls.front());
    json.beginArray();
    for (const HWND control : controls) {
        json.beginObject();
        json.member<std::wstring_view>("text", textOf(control));
        json.member("focused", control == focused);
        json.endObject();
    }
    json.endArray();
}

} // namespace tollvane::probe
