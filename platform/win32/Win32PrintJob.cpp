#include "platform/win32/Win32PrintJob.h"

#include "platform/win32/Dpi.h"
#include "platform/win32/SystemText.h"

#include <cmath>
#include <utility>

namespace tollvane::win32 {

namespace {

constexpr int kPointsPerInch = 72;
constexpr int kRuleTwips = 10; ///< half a point, thin and still seen on a fine printer
constexpr const char* kSource = "Printer";

double twips(int pixels, int dpi) {
    return static_cast<double>(pixels) * twipsPerInch / dpi;
}

/// The system's code for a spooler's result.
DWORD systemCode(int result) {
    switch (result) {
    case SP_OUTOFDISK: return ERROR_DISK_FULL;
    case SP_OUTOFMEMORY: return ERROR_OUTOFMEMORY;
    default: break;
    }
    const DWORD last = GetLastError();
    return last == ERROR_SUCCESS ? ERROR_GEN_FAILURE : last;
}

/// The calls that say nothing but whether they worked.
void require(BOOL worked) {
    if (!worked) {
        throw printingError(SP_ERROR);
    }
}

void requirePositive(int result) {
    if (result <= 0) {
        throw printingError(result);
    }
}

} // namespace

Error printingError(int result) {
    const DWORD code = systemCode(result);
    if (result == SP_APPABORT || result == SP_USERABORT || code == ERROR_CANCELLED ||
        code == ERROR_PRINT_CANCELLED) {
        return {errornumber::cancelled, kSource, "Printing was cancelled"};
    }
    std::string text = systemText(code);
    while (text.ends_with('.')) {
        text.pop_back();
    }
    return {static_cast<long>(code), kSource, text.empty() ? "The printer does not answer" : text};
}

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
    requirePositive(StartPage(context_));
}

void PrinterDocument::end() {
    SetLastError(ERROR_SUCCESS);
    requirePositive(EndPage(context_));
    requirePositive(EndDoc(context_));
    open_ = false;
}

Win32PrintJob::Win32PrintJob(DeviceContextHandle context, std::string documentName)
    : context_(std::move(context)), documentName_(std::move(documentName)),
      dpiX_(GetDeviceCaps(context_.get(), LOGPIXELSX)),
      dpiY_(GetDeviceCaps(context_.get(), LOGPIXELSY)), document_(context_.get()) {
    SetBkMode(context_.get(), TRANSPARENT);
    setFont({});
}

Win32PrintJob::~Win32PrintJob() {
    // A font can be given back only when no device context holds it.
    SelectObject(context_.get(), GetStockObject(SYSTEM_FONT));
}

double Win32PrintJob::width() {
    return twips(GetDeviceCaps(context_.get(), HORZRES), dpiX_);
}

double Win32PrintJob::height() {
    return twips(GetDeviceCaps(context_.get(), VERTRES), dpiY_);
}

void Win32PrintJob::setFont(const PrintFont& font) {
    LOGFONTA wanted{};
    wanted.lfHeight = -MulDiv(font.points, dpiY_, kPointsPerInch);
    wanted.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
    wanted.lfItalic = font.italic;
    wanted.lfCharSet = DEFAULT_CHARSET;
    font.name.copy(wanted.lfFaceName, LF_FACESIZE - 1);
    FontHandle created(CreateFontIndirectA(&wanted));
    SetLastError(ERROR_SUCCESS);
    require(created && SelectObject(context_.get(), created.get()) != nullptr);
    font_ = std::move(created);
}

double Win32PrintJob::textWidth(std::string_view text) {
    SIZE size{};
    SetLastError(ERROR_SUCCESS);
    require(
        GetTextExtentPoint32A(context_.get(), text.data(), static_cast<int>(text.size()), &size));
    return twips(size.cx, dpiX_);
}

double Win32PrintJob::textHeight(std::string_view) {
    TEXTMETRICA metrics{};
    SetLastError(ERROR_SUCCESS);
    require(GetTextMetricsA(context_.get(), &metrics));
    return twips(metrics.tmHeight, dpiY_);
}

void Win32PrintJob::openDocument() {
    if (!document_.isOpen()) {
        document_.open(documentName_);
    }
}

POINT Win32PrintJob::pixels(double x, double y) const {
    return {std::lround(x * dpiX_ / twipsPerInch), std::lround(y * dpiY_ / twipsPerInch)};
}

void Win32PrintJob::print(std::string_view text) {
    openDocument();
    if (!text.empty()) {
        const POINT at = pixels(x_, y_);
        SetLastError(ERROR_SUCCESS);
        require(TextOutA(context_.get(), at.x, at.y, text.data(), static_cast<int>(text.size())));
    }
    y_ += textHeight(text);
    x_ = left();
}

void Win32PrintJob::drawLine(double fromX, double fromY, double toX, double toY) {
    openDocument();
    const PenHandle pen(CreatePen(PS_SOLID, pixelsFromTwips(kRuleTwips, dpiY_), RGB(0, 0, 0)));
    const SelectedObject selected(context_.get(), pen.get());
    const POINT from = pixels(fromX, fromY);
    const POINT to = pixels(toX, toY);
    SetLastError(ERROR_SUCCESS);
    require(MoveToEx(context_.get(), from.x, from.y, nullptr) &&
            LineTo(context_.get(), to.x, to.y));
    x_ = toX;
    y_ = toY;
}

void Win32PrintJob::endDocument() {
    openDocument();
    document_.end();
}

} // namespace tollvane::win32
