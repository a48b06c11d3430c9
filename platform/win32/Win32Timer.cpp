#include "platform/win32/Win32Timer.h"

#include "platform/Error.h"

namespace tollvane::win32 {

Win32Timer::Win32Timer(FormCore& form, const ControlDescription& description)
    : ControlOf(form, description), interval_(description.interval) {
    enabled_ = false;
}

void Win32Timer::setEnabled(bool enabled) {
    enabled_ = enabled;
    restart();
}

void Win32Timer::setInterval(int milliseconds) {
    interval_ = milliseconds;
    restart();
}

void Win32Timer::restart() {
    if (!form().window()) {
        return;
    }
    const bool wanted = enabled_ && interval_ > 0;
    if (wanted) {
        // In place of the one that runs.
        if (SetTimer(form().window(), idOf(*this), static_cast<UINT>(interval_), nullptr) == 0) {
            throw Error(static_cast<long>(GetLastError()), name(), "The timer cannot be started.");
        }
    } else if (runs_) {
        KillTimer(form().window(), idOf(*this));
    }
    runs_ = wanted;
}

} // namespace tollvane::win32
