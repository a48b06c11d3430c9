#pragma once

#include "components/charge/core/ChargeService.h"
#include "platform/Money.h"
#include "tests/desktop/FakeAutomation.h"
#include "tests/desktop/FakeClock.h"
#include "tests/proof/simulation/Fault.h"
#include "tests/proof/simulation/SimulatedDisk.h"
#include "tests/proof/simulation/SimulatedLine.h"

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <variant>

namespace tollvane::simulation {

/// The charge component's time, which is the till's.
class TillClock final : public charge::Clock {
public:
    explicit TillClock(test::FakeClock& clock) : clock_(clock) {}
    charge::Moment now() override;

private:
    test::FakeClock& clock_;
};

class FixedSettings final : public charge::SettingsSource {
public:
    charge::Settings read() override { return settings; }

    charge::Settings settings{false, "merchant", 120, "data", "logs", "ZENDACARD.LOG"};
};

/// What the component stands on; outlives the processes that load it.
struct ChargeGround {
    SimulatedDisk disk;
    Line line;
    FixedSettings settings;
    int keys = 0;
    std::string lastKey;          ///< of the operation that was begun last
    bool dark = false;            ///< the process that runs now has ended
    std::set<std::string> places; ///< names of the programs that run at the till

    std::string newKey();
};

/// The charge component in one process: its own work behind its automation contract.
class SimulatedCharge {
public:
    SimulatedCharge(ChargeGround& ground, test::FakeClock& clock, test::AutomationRecord& record);
    SimulatedCharge(const SimulatedCharge&) = delete;
    SimulatedCharge& operator=(const SimulatedCharge&) = delete;

    /// The component, when the program asks for it: what an earlier process left open is settled.
    ObjectRef load();
    bool loaded() const { return loaded_; }
    charge::ChargeService& service() { return *service_; }

    /// What the next use of a member answers or raises instead of its own answer.
    using Mischief = std::variant<Variant, Error>;
    void spoil(Fault fault, const std::string& member, Mischief mischief) {
        spoilt_[member].push_back({fault, std::move(mischief)});
    }
    void forgive();
    /// The faults that came up since the last pardon.
    const Faults& struck() const { return struck_; }

    /// The operation has an answer that the program has not got yet.
    std::function<void()> onAnswer;
    /// The last operation ended with an error, so that its outcome is not known to the program.
    bool raised = false;
    /// The process ended while an operation was under way.
    bool endedInCall = false;

private:
    struct Spoilt {
        Fault fault;
        Mischief mischief;
    };

    void addTexts();
    void addMoney();
    void addResponse();
    void addOperations();
    void addHousekeeping();
    void addFields();
    void addOperation(const std::string& name, charge::Operation operation);
    Variant run(const std::string& name, charge::Operation operation, const std::string& argument);
    Variant answer(const std::string& member, const std::function<Variant()>& own);
    /// The same for what is given to a member.
    void take(const std::string& member, const std::function<void()>& own);

    ChargeGround& ground_;
    TillClock clock_;
    test::AutomationRecord& record_;
    std::unique_ptr<charge::ChargeService> service_;
    std::shared_ptr<test::FakeObject> object_;
    std::map<std::string, std::deque<Spoilt>> spoilt_;
    Faults struck_;
    bool loaded_ = false;
};

/// A service of its own on the same files, as another process has it.
std::unique_ptr<charge::ChargeService> makeService(ChargeGround& ground, charge::Clock& clock);

} // namespace tollvane::simulation
