#include "output/LaunchErrors.h"

#include <algorithm>
#include <array>

namespace tollvane {

namespace {

struct LaunchError {
    std::int32_t code;
    std::string_view text;
};

constexpr std::array kLaunchErrors{
    LaunchError{0, "System was out of memory, executable file was corrupt, or relocations were "
                   "invalid."},
    LaunchError{2, "File was not found."},
    LaunchError{3, "Path was not found."},
    LaunchError{5, "Attempt was made to dynamically link to a task, or there was a sharing or "
                   "network-protection error."},
    LaunchError{6, "Library required separate data segments for each task."},
    LaunchError{8, "There was insufficient memory to start the application."},
    LaunchError{10, "Windows version was incorrect."},
    LaunchError{11, "Executable file was invalid. Either it was not a Windows application or there "
                    "was an error in the .EXE image."},
    LaunchError{12, "Application was designed for a different operating system."},
    LaunchError{13, "Application was designed for MS-DOS 4.0."},
    LaunchError{14, "Type of executable file was unknown."},
    LaunchError{15, "Attempt was made to load a real-mode application (developed for an earlier "
                    "version of Windows)."},
    LaunchError{16, "Attempt was made to load a second instance of an executable file containing "
                    "multiple data segments that were not marked read-only."},
    LaunchError{19, "Attempt was made to load a compressed executable file. The file must be "
                    "decompressed before it can be loaded."},
    LaunchError{20, "Dynamic-link library (DLL) file was invalid. One of the DLLs required to run "
                    "this application was corrupt."},
    LaunchError{21, "Application requires Microsoft Windows 32-bit extensions."},
    LaunchError{31, "There is no association for the specified file type or if there is no "
                    "association for the specified action within the file type."},
};

} // namespace

std::string launchErrorText(std::int32_t code, std::string_view name) {
    const auto known =
        std::find_if(kLaunchErrors.begin(), kLaunchErrors.end(),
                     [code](const LaunchError& error) { return error.code == code; });
    if (known == kLaunchErrors.end()) {
        return "An unknown error occurred trying to start " + std::string(name);
    }
    return "Error launching " + std::string(name) + ".\n\nError = " + std::to_string(code) + ". " +
           std::string(known->text);
}

} // namespace tollvane
