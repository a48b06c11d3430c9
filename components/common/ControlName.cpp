#include "components/common/ControlName.h"

#include <commctrl.h>

#include <algorithm>
#include <cwchar>

namespace tollvane::com {

namespace {

constexpr UINT_PTR subclassId = 0x54564E; // any value that no other subclass uses

UINT nameMessage() noexcept {
    static const UINT message = RegisterWindowMessageW(L"WM_GETCONTROLNAME");
    return message;
}

LRESULT copyName(const wchar_t* name, WPARAM size, LPARAM buffer) noexcept {
    const std::size_t length = std::wcslen(name);
    if (!buffer)
        return static_cast<LRESULT>(length);
    if (size == 0)
        return 0;
    const std::size_t count = std::min<std::size_t>(length, size - 1);
    auto* out = reinterpret_cast<wchar_t*>(buffer);
    std::wmemcpy(out, name, count);
    out[count] = L'\0';
    return static_cast<LRESULT>(count);
}

LRESULT CALLBACK nameProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                               DWORD_PTR name) {
    if (message == nameMessage())
        return copyName(reinterpret_cast<const wchar_t*>(name), wParam, lParam);
    if (message == WM_NCDESTROY)
        RemoveWindowSubclass(window, nameProcedure, id);
    return DefSubclassProc(window, message, wParam, lParam);
}

} // namespace

void setControlName(HWND window, const wchar_t* name) noexcept {
    SetWindowSubclass(window, nameProcedure, subclassId, reinterpret_cast<DWORD_PTR>(name));
}

} // namespace tollvane::com
