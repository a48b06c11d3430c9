#include "app/Application.h"
#include "platform/win32/Win32Desktop.h"

#include <windows.h>

#include <clocale>
#include <cstdlib>

namespace {

void runProgram(HINSTANCE instance) {
    tollvane::win32::Win32Desktop desktop(instance);
    tollvane::Application application(desktop.desktop());
    application.Main();
    desktop.run();
}

} // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE /*previous*/, LPSTR /*commandLine*/,
                   int /*show*/) {
    // Letters are those of the system's code page; numbers stay as C has them.
    std::setlocale(LC_CTYPE, "");
    try {
        runProgram(instance);
    } catch (...) {
        const tollvane::Error error = tollvane::currentError();
        MessageBoxA(nullptr, tollvane::failureText("There was an unexpected error.", error).c_str(),
                    "Tollvane", MB_OK | MB_ICONINFORMATION);
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
