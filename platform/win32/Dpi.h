#pragma once

#include <windows.h>

namespace tollvane::win32 {

inline constexpr int designDpi = 96;      ///< a design unit is 1/96 inch
inline constexpr int twipsPerInch = 1440; ///< a twip is 1/1440 inch

inline int scaled(int designUnits, int dpi) {
    return MulDiv(designUnits, dpi, designDpi);
}
inline int twipsFromPixels(int pixels, int dpi) {
    return MulDiv(pixels, twipsPerInch, dpi);
}
inline int pixelsFromTwips(int twips, int dpi) {
    return MulDiv(twips, dpi, twipsPerInch);
}

inline int systemDpi() {
    return static_cast<int>(GetDpiForSystem());
}
/// DPI of the monitor that shows the window.
inline int windowDpi(HWND window) {
    return static_cast<int>(GetDpiForWindow(window));
}

} // namespace tollvane::win32
