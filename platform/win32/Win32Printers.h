#pragma once

#include "platform/Printer.h"

#include <windows.h>

namespace tollvane::win32 {

/// The printers of the system's print spooler.
class Win32Printers final : public Printers {
public:
    std::unique_ptr<PrintJob> defaultPrinter(const std::string& documentName) override;
};

/// Raises 21 when the printer's status says that it is paused: what is sent to it now would come
/// out at some later time, when nobody waits for it any more.
void requireRunning(const std::string& printer, DWORD status);

} // namespace tollvane::win32
