#pragma once

#include "platform/win32/ControlOf.h"

namespace tollvane::win32 {

/// A timer of the form's window; it has no window of its own.
class Win32Timer final : public ControlOf<Timer> {
public:
    Win32Timer(FormCore& form, const ControlDescription& description);

    void setEnabled(bool enabled) override;
    int interval() const override { return interval_; }
    void setInterval(int milliseconds) override;
    void timerRang() override { raise(on.timer); }
    void place() override {}

    /// What the system calls this timer with.
    static UINT_PTR idOf(const NativeControl& timer) { return reinterpret_cast<UINT_PTR>(&timer); }

private:
    void restart();

    int interval_;
    bool runs_ = false;
};

} // namespace tollvane::win32
