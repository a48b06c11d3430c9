#pragma once

#include "platform/win32/Handles.h"

namespace tollvane::win32 {

/// The fonts of a form: the system's message font at the form's DPI.
class UiFonts {
public:
    explicit UiFonts(int dpi);

    HFONT regular() const { return regular_.get(); }
    HFONT bold() const { return bold_.get(); }

private:
    FontHandle regular_;
    FontHandle bold_;
};

} // namespace tollvane::win32
