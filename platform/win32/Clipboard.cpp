#include "platform/win32/Clipboard.h"

namespace tollvane::win32 {

std::string clipboardText(HWND owner) {
    if (!OpenClipboard(owner)) {
        return {};
    }
    std::string text;
    const HANDLE held = GetClipboardData(CF_TEXT);
    if (const auto* bytes = held ? static_cast<const char*>(GlobalLock(held)) : nullptr) {
        text = bytes;
        GlobalUnlock(held);
    }
    CloseClipboard();
    return text;
}

} // namespace tollvane::win32
