// Sizes are thought of at 96 dots per inch.
#pragma once

#include <windows.h>

namespace tollvane::logviewer {

inline int pixels(int design, UINT dpi) noexcept {
    return MulDiv(design, static_cast<int>(dpi), USER_DEFAULT_SCREEN_DPI);
}

} // namespace tollvane::logviewer
