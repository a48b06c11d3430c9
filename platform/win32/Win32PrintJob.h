#pragma once

#include "platform/Printer.h"
#include "platform/win32/Handles.h"
#include "platform/win32/PrintCanvas.h"

#include <windows.h>

#include <string>

namespace tollvane::win32 {

/// The document of a printer's device context, from its first page to its end. One that is dropped
/// before its end is taken back from the printer.
class PrinterDocument {
public:
    explicit PrinterDocument(HDC context) : context_(context) {}
    PrinterDocument(const PrinterDocument&) = delete;
    PrinterDocument& operator=(const PrinterDocument&) = delete;
    ~PrinterDocument();

    bool isOpen() const { return open_; }
    void open(const std::string& name);
    void end();

private:
    HDC context_;
    bool open_ = false;
};

/// Prints on a device context whose origin is the corner of the printable area.
class Win32PrintJob final : public PrintJob {
public:
    Win32PrintJob(DeviceContextHandle context, std::string documentName);

    double left() override { return 0; }
    double width() override { return canvas_.width(); }
    double height() override { return canvas_.height(); }
    void setFont(const PrintFont& font) override { canvas_.setFont(font); }
    double currentX() const override { return x_; }
    void setCurrentX(double x) override { x_ = x; }
    double currentY() const override { return y_; }
    void setCurrentY(double y) override { y_ = y; }
    double textWidth(std::string_view text) override { return canvas_.textWidth(text); }
    double textHeight(std::string_view) override { return canvas_.lineHeight(); }
    void print(std::string_view text) override;
    void drawLine(double fromX, double fromY, double toX, double toY) override;
    void endDocument() override;

private:
    void openDocument();

    PrintCanvas canvas_;
    PrinterDocument document_;
    std::string documentName_;
    double x_ = 0;
    double y_ = 0;
};

} // namespace tollvane::win32
