// The least that a Windows program with a box to type into can be: what ./bench calls the floor.
#include <windows.h>

namespace {

constexpr const char* kClass = "TollvaneBenchFloor";
constexpr int kEdge = 8;
// Below the place where a first window is put, so that two windows stand side by side.
constexpr RECT kPlace{40, 540, 740, 960};

HWND editOf(HWND window) {
    return FindWindowExA(window, nullptr, "EDIT", nullptr);
}

void fit(HWND window) {
    RECT inside{};
    GetClientRect(window, &inside);
    MoveWindow(editOf(window), kEdge, kEdge, inside.right - 2 * kEdge, inside.bottom - 2 * kEdge,
               TRUE);
}

LRESULT CALLBACK handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        CreateWindowExA(WS_EX_CLIENTEDGE, "EDIT", "",
                        WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_MULTILINE | ES_AUTOVSCROLL, 0, 0, 0,
                        0, window, nullptr, nullptr, nullptr);
        return 0;
    case WM_SIZE: fit(window); return 0;
    case WM_SETFOCUS: SetFocus(editOf(window)); return 0;
    case WM_DESTROY: PostQuitMessage(0); return 0;
    default: return DefWindowProcA(window, message, wParam, lParam);
    }
}

} // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int show) {
    WNDCLASSA description{};
    description.lpfnWndProc = handle;
    description.hInstance = instance;
    description.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
    description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    description.lpszClassName = kClass;
    RegisterClassA(&description);
    const HWND window = CreateWindowA(kClass, "Floor", WS_OVERLAPPEDWINDOW, kPlace.left, kPlace.top,
                                      kPlace.right - kPlace.left, kPlace.bottom - kPlace.top,
                                      nullptr, nullptr, instance, nullptr);
    if (window == nullptr) {
        return 1;
    }
    ShowWindow(window, show);
    UpdateWindow(window);
    MSG message{};
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (message.message == WM_KEYDOWN && message.wParam == VK_F9) {
            // What the system's own box costs, without a payment before it.
            MessageBoxA(window, "This is a box as wide as the one of a payment.", "Approved",
                        MB_OK);
            continue;
        }
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}
