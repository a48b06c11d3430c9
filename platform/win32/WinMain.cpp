#include "app/Application.h"
#include "platform/win32/SystemText.h"
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

/// A crash ends the program and no more: the error reporting or the debugger that the system would
/// call to it could keep the memory, in which a card may be.
LONG WINAPI endWithoutDump(EXCEPTION_POINTERS* /*crash*/) {
    return EXCEPTION_EXECUTE_HANDLER;
}

} // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE /*previous*/, LPSTR /*commandLine*/,
                   int /*show*/) {
    SetUnhandledExceptionFilter(endWithoutDump);
    // Letters are those of the system's code page; numbers stay as C has them.
    std::setlocale(LC_CTYPE, "");
    try {
        runProgram(instance);
    } catch (...) {
        const tollvane::Error error = tollvane::currentError();
        MessageBoxExA(nullptr,
                      tollvane::failureText("There was an unexpected error.", error).c_str(),
                      "Tollvane", MB_OK | MB_ICONINFORMATION, tollvane::win32::kBoxLanguage);
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
