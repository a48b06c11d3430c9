#include "output/CallHistory.h"

#include "app/CommonRoutines.h"
#include "platform/Error.h"
#include "settings/cRegistry.h"

namespace tollvane {

namespace {

constexpr const char* kFileName = "CALLHIST.TXT";

void demand(const Desktop& desktop, std::uint32_t error) {
    if (error != 0) {
        const auto status = static_cast<long>(error);
        throw Error(status, desktop.program.exeName(),
                    cRegistry(desktop).GetErrorDescription(status));
    }
}

/// Sets the attributes of the file where there is one; returns the system's error.
std::uint32_t mark(const Desktop& desktop, const std::string& path, std::uint32_t attributes) {
    return desktop.files.findFile(path).empty() ? 0 : desktop.files.setAttributes(path, attributes);
}

} // namespace

void appendCallHistory(const Desktop& desktop, const std::string& line) {
    trailed("AppendCallHistory", [&] {
        const std::string path = AppFolder(desktop.files) + kFileName;
        demand(desktop, mark(desktop, path, fileattribute::normal));
        const std::uint32_t appended = desktop.files.append(path, line + "\r\n");
        // Also after a failure: nobody shall find the file writable.
        const std::uint32_t marked = mark(desktop, path, fileattribute::readOnly);
        demand(desktop, appended);
        demand(desktop, marked);
    });
}

} // namespace tollvane
