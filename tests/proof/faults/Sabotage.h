#pragma once

#include "platform/Variant.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tollvane::test {

/// Whom the program calls.
enum class Callee {
    registry,
    creation, ///< of a component
    member,   ///< of a component's object
    files,
    program,
    locale,
    printer,
    shell,
    boxes,
    forms,   ///< the making of a window
    controls ///< a change that a handler makes to a control
};

/// One call of the program, as a run without failures noted it.
struct Call {
    Callee callee;
    std::string name;      ///< "queryValueEx Street", "charge.Amount", "execute"
    std::string step{};    ///< sentence of the handler that was at work
    std::string key{};     ///< of a registry call: the settings' sub key
    std::string setting{}; ///< of a registry call: the value that the key is opened for
    int ordinal = 1;       ///< among the calls of the same name and setting in their scenario

    std::string text() const { return name + (setting.empty() ? "" : " (" + setting + ")"); }
};

/// How a call fails.
struct Mode {
    enum class How {
        status,  ///< answers `number`
        raises,  ///< raises `number` and does nothing
        dies,    ///< the process behind the object ends: 462, now and whenever it is called again
        loses,   ///< does its work, and then the process ends before it can answer
        answers, ///< does its work and answers `answer`
        noText,  ///< answers `number`, and the system has no text for it
        type,    ///< a value of another type, as bytes of the kind `number`
        empty    ///< a value without bytes
    };

    How how = How::raises;
    std::string name;
    long number = 0;
    std::string description{};
    Variant answer{};
};

/// Decides when which call fails, and notes every call meanwhile. One of them lives in each run.
class Sabotage {
public:
    /// The n-th call that is watched (0 is the first) fails in this mode.
    void plan(std::size_t nth, Mode mode);
    /// Calls count and fail only while this is on.
    void watch(bool on) { watching_ = on; }
    void enter(std::string step) { step_ = std::move(step); }

    /// For the ports: notes a call; the mode when it is the one to fail, else null.
    const Mode* strike(Callee callee, const std::string& name, const std::string& key = {});
    /// For the ports: calls that cannot fail by plan but may be told apart by their setting.
    void nameSetting(const std::string& valueName);

    const std::vector<Call>& calls() const { return calls_; }
    bool reached() const { return reached_; }

    // Processes that host components, by the first word of their objects' names.
    bool isDead(const std::string& process) const { return dead_.count(process) != 0; }
    bool anyDead() const { return !dead_.empty(); }
    void kill(const std::string& process) { dead_.insert(process); }
    void revive(const std::string& process) { dead_.erase(process); }

    bool systemTextsAreMissing = false;
    int liveObjects = 0; ///< references that the program holds

private:
    std::vector<Call> calls_;
    std::string step_;
    std::set<std::string> dead_;
    std::optional<Mode> mode_;
    std::size_t failing_ = 0;
    bool watching_ = false;
    bool reached_ = false;
};

/// Every way in which this call can fail.
std::vector<Mode> modesOf(const Call& call);

} // namespace tollvane::test
