#include "platform/win32/UiFonts.h"

namespace tollvane::win32 {

namespace {

constexpr int kFallbackPoints = 9;
constexpr int kPointsPerInch = 72;

LOGFONTA messageFont(int dpi) {
    NONCLIENTMETRICSA metrics{};
    metrics.cbSize = sizeof metrics;
    // Only the wide form of this call knows a DPI; the plain one answers for the system's.
    NONCLIENTMETRICSW scaledMetrics{};
    scaledMetrics.cbSize = sizeof scaledMetrics;
    LOGFONTA font{};
    font.lfHeight = -MulDiv(kFallbackPoints, dpi, kPointsPerInch);
    font.lfCharSet = DEFAULT_CHARSET;
    lstrcpyA(font.lfFaceName, "Tahoma");
    if (SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0)) {
        font = metrics.lfMessageFont;
    }
    if (SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof scaledMetrics, &scaledMetrics, 0,
                                   static_cast<UINT>(dpi))) {
        font.lfHeight = scaledMetrics.lfMessageFont.lfHeight;
    }
    return font;
}

} // namespace

UiFonts::UiFonts(int dpi) {
    LOGFONTA font = messageFont(dpi);
    regular_.reset(CreateFontIndirectA(&font));
    font.lfWeight = FW_BOLD;
    bold_.reset(CreateFontIndirectA(&font));
}

} // namespace tollvane::win32
