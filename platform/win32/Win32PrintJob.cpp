#include "platform/win32/Win32PrintJob.h"

#include <utility>

namespace tollvane::win32 {

namespace {

void requirePositive(int result) {
    requirePrinted(result > 0, result);
}

} // namespace

PrinterDocument::~PrinterDocument() {
    if (open_) {
        AbortDoc(context_);
    }
}

void PrinterDocument::open(const std::string& name) {
    DOCINFOA document{};
    document.cbSize = sizeof document;
    document.lpszDocName = name.c_str();
    SetLastError(ERROR_SUCCESS);
    requirePositive(StartDocA(context_, &document));
    open_ = true;
    SetLastError(ERROR_SUCCESS);
    requirePositive(StartPage(context_));
}

void PrinterDocument::end() {
    SetLastError(ERROR_SUCCESS);
    requirePositive(EndPage(context_));
    SetLastError(ERROR_SUCCESS);
    requirePositive(EndDoc(context_));
    open_ = false;
}

Win32PrintJob::Win32PrintJob(DeviceContextHandle context, std::string documentName)
    : canvas_(std::move(context)), document_(canvas_.context()),
      documentName_(std::move(documentName)) {}

void Win32PrintJob::openDocument() {
    if (!document_.isOpen()) {
        document_.open(documentName_);
    }
}

void Win32PrintJob::print(std::string_view text) {
    openDocument();
    if (!text.empty()) {
        canvas_.drawText(x_, y_, text);
    }
    y_ += canvas_.lineHeight();
    x_ = left();
}

void Win32PrintJob::drawLine(double fromX, double fromY, double toX, double toY) {
    openDocument();
    canvas_.drawLine(fromX, fromY, toX, toY);
    x_ = toX;
    y_ = toY;
}

void Win32PrintJob::endDocument() {
    openDocument();
    document_.end();
}

} // namespace tollvane::win32
