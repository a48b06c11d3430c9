#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace tollvane::test {

/// The ports whose calls can be made to fail.
enum class Port {
    controls, ///< changes of controls made by event handlers (in-memory forms only)
    messageBoxes,
    registry,
    automation, ///< creation of components and every call on their objects
    files,
    program,
    locale,
    printer,
    shell, ///< launches give the planned number back; help is not shown
    count
};

/// Counts the calls of each port and makes the n-th one fail. A fake asks at the start of every
/// call whether it is this one's turn.
class FaultPlan {
public:
    /// The n-th call from now on (1 is the next) fails with this number: a status code for the
    /// registry and the files, the number of the raised error elsewhere.
    void failAt(Port port, int nth, long number);
    void clear() { *this = FaultPlan(); }

    /// Calls of the port since the plan was made or last cleared.
    int calls(Port port) const { return counts_[index(port)]; }
    /// True once the planned call has been made.
    bool reached() const { return reached_; }
    /// Name of the call that failed.
    const std::string& failedCall() const { return failedCall_; }

    /// For the fakes: counts a call; true when it has to fail.
    bool strikes(Port port, std::string_view call);
    /// For the fakes: counts a call and raises the planned error when it has to fail.
    void hit(Port port, std::string_view call);
    long number() const { return number_; }

private:
    static std::size_t index(Port port) { return static_cast<std::size_t>(port); }

    std::array<int, static_cast<std::size_t>(Port::count)> counts_{};
    Port port_ = Port::count;
    int failingCall_ = 0;
    long number_ = 0;
    bool reached_ = false;
    std::string failedCall_;
};

/// Runs a scenario again and again, failing the port's first call, then its second and so on, until
/// a run makes no call that could still fail. The scenario builds its own desktop, plans
/// `plan.failAt(port, nth, number)` there, and returns whether the planned call was reached.
/// Returns the number of runs in which a call failed.
int sweepFaults(const std::function<bool(int nth)>& scenario);

} // namespace tollvane::test
