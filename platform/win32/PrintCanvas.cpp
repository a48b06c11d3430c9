#include "platform/win32/PrintCanvas.h"

#include "platform/win32/Dpi.h"
#include "platform/win32/SystemText.h"

#include <algorithm>
#include <cmath>
#include <string>
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

void require(BOOL worked) {
    requirePrinted(worked != FALSE, SP_ERROR);
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
        text.pop_back(); // whoever shows it ends the sentence
    }
    return {static_cast<long>(code), kSource, text.empty() ? "The printer does not answer" : text};
}

void requirePrinted(bool worked, int result) {
    if (!worked) {
        throw printingError(result);
    }
}

PrintCanvas::PrintCanvas(DeviceContextHandle context)
    : context_(std::move(context)), dpiX_(GetDeviceCaps(context_.get(), LOGPIXELSX)),
      dpiY_(GetDeviceCaps(context_.get(), LOGPIXELSY)) {
    SetBkMode(context_.get(), TRANSPARENT);
    setFont({});
}

PrintCanvas::~PrintCanvas() {
    // A font can be given back only when no device context holds it.
    SelectObject(context_.get(), GetStockObject(SYSTEM_FONT));
}

double PrintCanvas::width() const {
    return twips(GetDeviceCaps(context_.get(), HORZRES), dpiX_);
}

double PrintCanvas::height() const {
    return twips(GetDeviceCaps(context_.get(), VERTRES), dpiY_);
}

void PrintCanvas::setFont(const PrintFont& font) {
    LOGFONTA wanted{};
    wanted.lfHeight = -MulDiv(font.points, dpiY_, kPointsPerInch);
    wanted.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
    wanted.lfItalic = font.italic ? TRUE : FALSE;
    wanted.lfCharSet = DEFAULT_CHARSET;
    font.name.copy(wanted.lfFaceName, LF_FACESIZE - 1);
    SetLastError(ERROR_SUCCESS);
    FontHandle created(CreateFontIndirectA(&wanted));
    require(created && SelectObject(context_.get(), created.get()) != nullptr);
    font_ = std::move(created);
}

double PrintCanvas::textWidth(std::string_view text) const {
    SIZE size{};
    SetLastError(ERROR_SUCCESS);
    require(
        GetTextExtentPoint32A(context_.get(), text.data(), static_cast<int>(text.size()), &size));
    return twips(size.cx, dpiX_);
}

double PrintCanvas::lineHeight() const {
    TEXTMETRICA metrics{};
    SetLastError(ERROR_SUCCESS);
    require(GetTextMetricsA(context_.get(), &metrics));
    return twips(metrics.tmHeight, dpiY_);
}

POINT PrintCanvas::pixels(double x, double y) const {
    return {std::lround(x * dpiX_ / twipsPerInch), std::lround(y * dpiY_ / twipsPerInch)};
}

void PrintCanvas::drawText(double x, double y, std::string_view text) {
    const POINT at = pixels(x, y);
    SetLastError(ERROR_SUCCESS);
    require(TextOutA(context_.get(), at.x, at.y, text.data(), static_cast<int>(text.size())));
}

void PrintCanvas::drawLine(double fromX, double fromY, double toX, double toY) {
    const int thickness = std::max(1, pixelsFromTwips(kRuleTwips, dpiY_));
    const PenHandle pen(CreatePen(PS_SOLID, thickness, RGB(0, 0, 0)));
    const SelectedObject selected(context_.get(), pen.get());
    const POINT from = pixels(fromX, fromY);
    const POINT to = pixels(toX, toY);
    SetLastError(ERROR_SUCCESS);
    require(MoveToEx(context_.get(), from.x, from.y, nullptr) &&
            LineTo(context_.get(), to.x, to.y));
}

} // namespace tollvane::win32
