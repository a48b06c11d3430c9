#include "tests/proof/simulation/Simulation.h"

#include "tests/proof/simulation/Dice.h"
#include "tests/proof/simulation/Shop.h"

#include <algorithm>
#include <array>
#include <functional>

namespace tollvane::simulation {

namespace {

constexpr int kCustomersADay = 14;
constexpr auto kEveryKind = static_cast<int>(kFaultKinds);

constexpr std::array kImpatience{
    Fault::doubleClick,       Fault::heldKeys,          Fault::accessKeyRepeated,
    Fault::swipeWhileBusy,    Fault::swipeOverBox,      Fault::cancelWhileBusy,
    Fault::closeBoxWhileBusy, Fault::secondInstance,    Fault::otherTillWhileBusy,
    Fault::hastySecondTry,    Fault::otherTypeWhileBusy};
/// What makes the operator try again.
constexpr std::array kCauses{Fault::replyLost,
                             Fault::replyLostAndLineDead,
                             Fault::lateApproval,
                             Fault::processorDown,
                             Fault::componentDiedAfterAnswer,
                             Fault::programKilledAfterAnswer,
                             Fault::powerCutBeforeWrite,
                             Fault::powerCutMidWrite,
                             Fault::powerCutAfterWrite,
                             Fault::programKilledWhileBusy,
                             Fault::updateAnswerLost,
                             Fault::errorAfterApproval,
                             Fault::clockBack};
/// What ends the program, so that it has to be started again.
constexpr std::array kEnds{Fault::programKilledWhileBusy, Fault::programKilledAfterAnswer,
                           Fault::powerCutBeforeWrite, Fault::powerCutMidWrite,
                           Fault::powerCutAfterWrite};

Faults anyFaults(Dice& dice) {
    Faults faults;
    const int count = dice.below(4); // none to three
    for (int i = 0; i < count; ++i) {
        faults.insert(static_cast<Fault>(dice.below(kEveryKind)));
    }
    return faults;
}

Faults impatience(Dice& dice) {
    Faults faults{dice.pick(kImpatience)};
    if (dice.percent(60)) {
        faults.insert(Fault::hastySecondTry);
        faults.insert(dice.pick(kCauses));
    } else if (dice.percent(40)) {
        faults.insert(dice.pick(kEnds));
    }
    return faults;
}

Report play(std::uint64_t seed, int customers, const std::function<Faults(Dice&)>& draw) {
    Report report;
    Dice days(seed);
    for (int served = 0; served < customers;) {
        const std::uint64_t day = days.next();
        report.trace.line("day " + std::to_string(day));
        Dice dice(day);
        Shop shop(dice, report);
        const int today = std::min(kCustomersADay, customers - served);
        for (int i = 0; i < today; ++i) {
            shop.serve(draw(dice));
        }
        shop.close();
        served += today;
    }
    return report;
}

} // namespace

Report simulate(std::uint64_t seed, int transactions) {
    return play(seed, transactions, anyFaults);
}

Report submitTwice(std::uint64_t seed, int entries) {
    return play(seed, entries, impatience);
}

} // namespace tollvane::simulation
