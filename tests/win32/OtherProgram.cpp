#include "tests/win32/OtherProgram.h"

#include <future>

namespace tollvane::test {

namespace {

void live(std::promise<HWND> made) {
    const HWND window = CreateWindowExA(0, "STATIC", "Another program", WS_POPUP, 400, 400, 160,
                                        120, nullptr, nullptr, nullptr, nullptr);
    ShowWindow(window, SW_SHOWNOACTIVATE);
    made.set_value(window);
    MSG message{};
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        DispatchMessageA(&message);
    }
    DestroyWindow(window);
}

} // namespace

OtherProgram::OtherProgram() {
    std::promise<HWND> made;
    std::future<HWND> window = made.get_future();
    thread_ = std::thread(live, std::move(made));
    window_ = window.get();
}

OtherProgram::~OtherProgram() {
    PostThreadMessageA(GetWindowThreadProcessId(window_, nullptr), WM_QUIT, 0, 0);
    thread_.join();
}

} // namespace tollvane::test
