#pragma once

#include <map>
#include <string>
#include <tuple>

#include <windows.h>

namespace tollvane::probe {

/// The names of controls. Each is asked for once, since to ask takes memory in the other process
/// and much longer than all else that is told of a control.
class Names {
public:
    /// The name of a control; empty when it has none.
    const std::wstring& of(HWND control);

private:
    /// Window, process, parent and number: handles are used again, hardly with all of these.
    using Key = std::tuple<HWND, DWORD, HWND, int>;

    std::map<Key, std::wstring> known_;
};

} // namespace tollvane::probe
