#pragma once

#include "tests/proof/simulation/Counter.h"
#include "tests/proof/simulation/Dice.h"
#include "tests/proof/simulation/Judge.h"
#include "tests/proof/simulation/Report.h"

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace tollvane::simulation {

/// A shop on one day: the books that last, the program that comes and goes, a clerk, and whatever
/// befalls them. Everything follows from the dice.
class Shop {
public:
    Shop(Dice& dice, Report& report);

    /// One customer, with these faults around the transaction.
    void serve(const Faults& faults);
    /// The program ends properly and starts once more; then the books are compared.
    void close();

private:
    // What the clerk does.
    Entry nextEntry();
    void refer(Entry& entry);
    void submit(const Faults& faults);
    void pressInAHurry(const Faults& faults);
    void secondTry(const Faults& faults);
    void printReceipt(const Faults& faults);
    void noteHowItPrinted();
    void readScreen(const std::string& statusBefore);

    // What befalls the shop.
    void arm(const Faults& faults);
    void armDisk(const Faults& faults);
    void armLine(const Faults& faults);
    void armComponents(const Faults& faults);
    void armMachine(const Faults& faults);
    void noteWhatStruck(const Faults& faults);
    void disarm(const Faults& faults);
    /// What was on its way arrives at the processor, whose disk is elsewhere.
    void deliverLate();
    void meddle(const Faults& faults);
    void meddleOverBox(const Faults& faults, const Message& box);
    void moveClock(const Faults& faults);
    void putClockBack(int seconds);
    void chargeAtOtherTill();
    void startSecondInstance();
    void pressKeys(const Faults& faults);

    void start();
    void signIn();
    void setServerClock();
    void watchBoxes();
    void stop();
    /// Answers whether it had ended in the middle of a call.
    bool restartIfEnded();
    Entry& entry() { return entries_.back(); }
    bool met(const Faults& faults, Fault fault);
    void noteMet(Fault fault);

    Dice& dice_;
    Report& report_;
    ChargeGround ground_;
    SimulatedHost host_{ground_.dark};
    Judge judge_{ground_, host_, report_};
    std::unique_ptr<Counter> counter_;
    DateTime now_{2026, 11, 21, 9, 5, 3};
    std::vector<Entry> entries_;
    std::set<std::string> told_;
    bool armed_ = false; ///< the entry's faults, and not counted yet
    Faults struck_;      ///< around this transaction
    Faults struckInCall_;
    bool busy_ = false; ///< the processor works
    bool meddled_ = false;
    bool meddlingOverBox_ = false;
};

} // namespace tollvane::simulation
