#include "platform/win32/MessagePump.h"

#include "platform/win32/FormCore.h"
#include "platform/win32/Ui.h"
#include "platform/win32/UsedStack.h"

namespace tollvane::win32 {

namespace {

void deliver(Ui& ui, MSG& message) {
    if (message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST) {
        if (const FormCore* form = ui.formOf(message.hwnd)) {
            form->toolTips.mouse(message);
        }
    }
    const bool keyDown = message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN;
    if (keyDown && ui.formOf(message.hwnd)) {
        DispatchMessageA(&message);
        if (!ui.takeDroppedKey()) {
            TranslateMessage(&message);
        }
        return;
    }
    TranslateMessage(&message);
    DispatchMessageA(&message);
}

} // namespace

void dispatch(Ui& ui, MSG& message) {
    deliver(ui, message);
    // A handler cannot reach what lies between its own caller and this place.
    wipeUsedStack();
}

void pumpWhile(Ui& ui, const std::function<bool()>& condition) {
    MSG message{};
    while (condition()) {
        const BOOL got = GetMessageA(&message, nullptr, 0, 0);
        if (got == 0) {
            // Whoever runs the outer loop has to hear of it too.
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (got > 0) {
            dispatch(ui, message);
        }
    }
}

bool pumpWaiting(Ui& ui) {
    MSG message{};
    bool any = false;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        any = true;
        dispatch(ui, message);
    }
    return any;
}

} // namespace tollvane::win32
