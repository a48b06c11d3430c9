#pragma once

#include "app/Application.h"
#include "tests/desktop/TestDesktop.h"
#include "tests/proof/simulation/Entry.h"
#include "tests/proof/simulation/SimulatedCharge.h"
#include "tests/proof/simulation/SimulatedHost.h"

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tollvane::simulation {

/// Message boxes with an operator in front of them, who answers at once.
class SimulatedBoxes : public MessageBoxes {
public:
    explicit SimulatedBoxes(const bool& dark) : dark_(dark) {}

    MessageAnswer show(const Message& message) override;

    /// The next box cannot be shown.
    bool refuseNext = false;
    /// What the operator answers to questions.
    MessageAnswer answer = MessageAnswer::no;
    /// Runs while a box is open.
    std::function<void(const Message& message)> whileOpen;
    /// The boxes that the operator saw.
    std::vector<Message> seen;

private:
    const bool& dark_;
};

/// The executable's facts at a till where one program at a time may run: whoever asks first has the
/// place, until it ends.
class FactsAtTill final : public test::FakeProgramFacts {
public:
    FactsAtTill(test::FaultPlan& faults, std::set<std::string>& places)
        : FakeProgramFacts(faults), places_(places) {}
    ~FactsAtTill() override;
    FactsAtTill(const FactsAtTill&) = delete;
    FactsAtTill& operator=(const FactsAtTill&) = delete;

    bool anotherInstanceRuns() override;

private:
    std::set<std::string>& places_;
    bool asked_ = false;
    std::optional<std::string> place_; ///< that this program has
};

/// One run of the program at the counter, and the hands of its operator.
class Counter {
public:
    /// `now` is the time on the wall.
    Counter(ChargeGround& ground, SimulatedHost& host, const DateTime& now);
    Counter(const Counter&) = delete;
    Counter& operator=(const Counter&) = delete;

    void start() { application_.Main(); }
    bool isOpen();
    ChargeInfo& program() { return *application_.form(); }
    Form& form() { return program().form(); }
    std::string status();

    void fill(const Entry& entry);
    void choose(int type) { desktop.robot->click(form(), "optTransType", type); }
    void press(std::string_view button) { desktop.robot->click(form(), button); }
    /// A whole card, as fast as a reader sends it.
    void swipe(std::string_view card);
    /// What an operator needs to go on, or what is wrong with it.
    std::string complaint();

    test::TestDesktop desktop;
    FactsAtTill facts;
    SimulatedBoxes boxes;
    SimulatedCharge charge;

private:
    TextBox& box(std::string_view name) { return form().control<TextBox>(name); }
    void enter(std::string_view name, std::string_view text) { box(name).setText(text); }
    void fillCard(const Entry& entry);
    void fillAddress();
    test::FakeClock& clockAt(const DateTime& now);
    Desktop furnish(SimulatedHost& host);

    Application application_;
};

} // namespace tollvane::simulation
