#include "tests/journeys/probe/Names.h"

#include "tests/journeys/probe/Remote.h"

namespace tollvane::probe {

const std::wstring& Names::of(HWND control) {
    DWORD process = 0;
    GetWindowThreadProcessId(control, &process);
    const Key key(control, process, GetParent(control), GetDlgCtrlID(control));
    std::wstring& name = known_[key];
    if (name.empty()) {
        name = controlNameOf(control);
    }
    return name;
}

} // namespace tollvane::probe
