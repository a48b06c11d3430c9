#include "platform/win32/Win32Printers.h"

#include "platform/win32/Win32PrintJob.h"

#include <winspool.h>

#include <cstddef>
#include <string>
#include <vector>

namespace tollvane::win32 {

namespace {

constexpr const char* kSource = "Printer";

struct PrinterTraits {
    using Handle = HANDLE;
    static Handle empty() { return nullptr; }
    static void close(Handle handle) { ClosePrinter(handle); }
};
using PrinterHandle = Owner<PrinterTraits>;

std::string defaultPrinterName() {
    DWORD size = 0;
    GetDefaultPrinterA(nullptr, &size);
    std::string name(size, '\0');
    if (size == 0 || !GetDefaultPrinterA(name.data(), &size)) {
        throw Error(errornumber::noPrinter, kSource, "There is no default printer");
    }
    name.resize(name.find('\0'));
    return name;
}

PrinterHandle opened(std::string& name) {
    HANDLE printer = nullptr;
    SetLastError(ERROR_SUCCESS);
    if (!OpenPrinterA(name.data(), &printer, nullptr)) {
        throw printingError(SP_ERROR);
    }
    return PrinterHandle(printer);
}

/// 0 when the spooler does not tell: the printer is tried then.
DWORD statusOf(HANDLE printer) {
    constexpr DWORD kLevel = 2;
    DWORD size = 0;
    GetPrinterA(printer, kLevel, nullptr, 0, &size);
    std::vector<std::byte> buffer(size);
    auto* info = reinterpret_cast<PRINTER_INFO_2A*>(buffer.data());
    const bool told = size >= sizeof *info &&
                      GetPrinterA(printer, kLevel, reinterpret_cast<BYTE*>(info), size, &size);
    return told ? info->Status : 0;
}

/// The printer's own settings with the page upright.
std::vector<std::byte> uprightSettings(HANDLE printer, std::string& name) {
    SetLastError(ERROR_SUCCESS);
    const LONG size = DocumentPropertiesA(nullptr, printer, name.data(), nullptr, nullptr, 0);
    if (size <= 0) {
        throw printingError(SP_ERROR);
    }
    std::vector<std::byte> buffer(static_cast<std::size_t>(size));
    auto* settings = reinterpret_cast<DEVMODEA*>(buffer.data());
    if (DocumentPropertiesA(nullptr, printer, name.data(), settings, nullptr, DM_OUT_BUFFER) < 0) {
        throw printingError(SP_ERROR);
    }
    settings->dmFields |= DM_ORIENTATION;
    settings->dmOrientation = DMORIENT_PORTRAIT;
    if (DocumentPropertiesA(nullptr, printer, name.data(), settings, settings,
                            DM_IN_BUFFER | DM_OUT_BUFFER) < 0) {
        throw printingError(SP_ERROR);
    }
    return buffer;
}

} // namespace

void requireRunning(const std::string& printer, DWORD status) {
    if ((status & PRINTER_STATUS_PAUSED) != 0) {
        throw Error(ERROR_NOT_READY, kSource, "The printer \"" + printer + "\" is paused");
    }
}

std::unique_ptr<PrintJob> Win32Printers::defaultPrinter(const std::string& documentName) {
    std::string name = defaultPrinterName();
    const PrinterHandle printer = opened(name);
    requireRunning(name, statusOf(printer.get()));
    const std::vector<std::byte> settings = uprightSettings(printer.get(), name);
    SetLastError(ERROR_SUCCESS);
    DeviceContextHandle context(CreateDCA("WINSPOOL", name.c_str(), nullptr,
                                          reinterpret_cast<const DEVMODEA*>(settings.data())));
    if (!context) {
        throw printingError(SP_ERROR);
    }
    return std::make_unique<Win32PrintJob>(std::move(context), documentName);
}

} // namespace tollvane::win32
