#pragma once

#include "platform/Error.h"
#include "platform/Printer.h"
#include "platform/win32/Handles.h"

#include <windows.h>

#include <string_view>

namespace tollvane::win32 {

/// A device context that is drawn on in twips from its upper left corner, with a font of its own.
class PrintCanvas {
public:
    explicit PrintCanvas(DeviceContextHandle context);
    PrintCanvas(const PrintCanvas&) = delete;
    PrintCanvas& operator=(const PrintCanvas&) = delete;
    ~PrintCanvas();

    HDC context() const { return context_.get(); }
    double width() const;
    double height() const;
    void setFont(const PrintFont& font);
    double textWidth(std::string_view text) const;
    double lineHeight() const;
    /// Places are rounded to the nearest pixel of the device.
    void drawText(double x, double y, std::string_view text);
    void drawLine(double fromX, double fromY, double toX, double toY);

private:
    POINT pixels(double x, double y) const;

    DeviceContextHandle context_;
    FontHandle font_;
    int dpiX_;
    int dpiY_;
};

/// What a printing call of the system that returned `result` (0 or less) stands for: 32755 when
/// somebody cancelled, otherwise the system's number and text.
Error printingError(int result);
/// Raises that error when the call did not work. The last system error is to be cleared before.
void requirePrinted(bool worked, int result);

} // namespace tollvane::win32
