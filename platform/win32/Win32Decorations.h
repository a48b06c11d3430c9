#pragma once

#include "platform/win32/ControlOf.h"

namespace tollvane::win32 {

class Win32Label final : public CaptionedOf<Label> {
public:
    Win32Label(FormCore& form, const ControlDescription& description);
};

/// A box with a caption around other controls, which stand beside it in the form, not inside it.
class Win32Frame final : public CaptionedOf<Frame> {
public:
    Win32Frame(FormCore& form, const ControlDescription& description);

protected:
    LRESULT handle(UINT message, WPARAM first, LPARAM second) override;

private:
    void paint();
};

/// Shows the program's icon.
class Win32Picture final : public ControlOf<Picture> {
public:
    Win32Picture(FormCore& form, const ControlDescription& description);
    void place() override;

private:
    IconHandle icon_;
};

} // namespace tollvane::win32
