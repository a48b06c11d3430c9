// What befalls the shop.

#include "components/common/ComponentError.h"
#include "gateway/TransactionType.h"
#include "tests/proof/simulation/Shop.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tollvane::simulation {

namespace {

using Trouble = SimulatedDisk::Trouble;

template <class Value>
struct Row {
    Fault fault;
    Value value;
};

constexpr std::array<Row<Trouble>, 9> kDisk{{{Fault::diskFull, Trouble::full},
                                             {Fault::failedFlush, Trouble::failedFlush},
                                             {Fault::shortWrite, Trouble::shortWrite},
                                             {Fault::failedTruncate, Trouble::failedTruncate},
                                             {Fault::unreadableFile, Trouble::unreadable},
                                             {Fault::folderInUse, Trouble::inUse},
                                             {Fault::powerCutBeforeWrite, Trouble::cutBefore},
                                             {Fault::powerCutMidWrite, Trouble::cutMidway},
                                             {Fault::powerCutAfterWrite, Trouble::cutAfter}}};
constexpr int kDiskCalls = 7; // about as many as an operation makes of a kind

constexpr std::array<Row<LineTrouble>, 7> kLine{
    {{Fault::requestLost, LineTrouble::requestLost},
     {Fault::replyLost, LineTrouble::replyLost},
     {Fault::replyLostAndLineDead, LineTrouble::replyLostAndLineDead},
     {Fault::lateApproval, LineTrouble::lateApproval},
     {Fault::processorDown, LineTrouble::processorDown},
     {Fault::requestSentTwice, LineTrouble::requestSentTwice},
     {Fault::programKilledWhileBusy, LineTrouble::programEnds}}};

constexpr std::array<Row<HostTrouble>, 5> kHost{
    {{Fault::hostDataGone, HostTrouble::gone},
     {Fault::recordRefused, HostTrouble::recordRefused},
     {Fault::storeFull, HostTrouble::storeFull},
     {Fault::updateNeverArrived, HostTrouble::updateNeverArrived},
     {Fault::updateAnswerLost, HostTrouble::updateAnswerLost}}};
constexpr int kRecordCalls = 11;

constexpr std::array kOperations{"AuthorizeAndCapture", "CaptureVoiceAuth", "Credit", "Void"};
constexpr std::array<const char*, 8> kReadAfterwards{
    "ApprovalCode", "TransactionID", "ResponseReasonText", "CardNumber",
    "Amount",       "TestMode",      "ExpirationDate",     "ZipCode"};
constexpr std::array<const char*, 4> kUsedBefore{"ClearFields", "TransactionField", "InvoiceNumber",
                                                 "Amount"};

const char* operationOf(const Entry& entry) {
    return kOperations.at(entry.type == transtype::charge ? (entry.byTelephone ? 1U : 0U)
                                                          : static_cast<unsigned>(entry.type) + 1U);
}

Error componentDied() {
    return {-2147023174, "charge", "The RPC server is unavailable."};
}

} // namespace

bool Shop::met(const Faults& faults, Fault fault) {
    const bool found = faults.count(fault) != 0;
    if (found) {
        noteMet(fault);
    }
    return found;
}

void Shop::noteMet(Fault fault) {
    struck_.insert(fault);
    if (busy_) {
        struckInCall_.insert(fault);
    }
}

void Shop::arm(const Faults& faults) {
    armed_ = true;
    armDisk(faults);
    armLine(faults);
    armComponents(faults);
    armMachine(faults);
    meddled_ = false;
    ground_.line.whileBusy = [this, faults] {
        busy_ = true;
        meddle(faults);
        busy_ = false;
    };
    counter_->boxes.whileOpen = [this, faults](const Message& box) { meddleOverBox(faults, box); };
}

void Shop::armDisk(const Faults& faults) {
    for (const auto& [fault, trouble] : kDisk) {
        if (faults.count(fault) != 0) {
            const bool once = trouble == Trouble::failedTruncate || trouble == Trouble::inUse;
            ground_.disk.plan(trouble, once ? 1 : dice_.between(1, kDiskCalls));
        }
    }
}

void Shop::armLine(const Faults& faults) {
    for (const auto& [fault, trouble] : kLine) {
        if (faults.count(fault) != 0) {
            ground_.line.troubles.push_back(trouble);
        }
    }
    for (const auto& [fault, trouble] : kHost) {
        if (faults.count(fault) != 0) {
            host_.troubles.insert(trouble);
            host_.refusedCall = dice_.below(kRecordCalls);
        }
    }
}

void Shop::armComponents(const Faults& faults) {
    SimulatedCharge& charge = counter_->charge;
    const std::string operation = operationOf(entry());
    if (faults.count(Fault::wrongTypedResult) != 0) {
        charge.spoil(Fault::wrongTypedResult, operation, Variant(std::string("perhaps")));
    }
    if (faults.count(Fault::componentDiedAfterAnswer) != 0) {
        charge.spoil(Fault::componentDiedAfterAnswer, operation, componentDied());
    }
    if (faults.count(Fault::errorBeforeOperation) != 0) {
        charge.spoil(Fault::errorBeforeOperation, dice_.pick(kUsedBefore), componentDied());
    }
    const bool wrongType = faults.count(Fault::wrongTypedField) != 0;
    const bool error = faults.count(Fault::errorAfterApproval) != 0;
    const bool killed = faults.count(Fault::programKilledAfterAnswer) != 0;
    const std::string member = dice_.pick(kReadAfterwards);
    charge.onAnswer = [this, faults, wrongType, error, killed, member] {
        if (wrongType) {
            counter_->charge.spoil(Fault::wrongTypedField, member, Variant(ObjectRef()));
        }
        if (error) {
            counter_->charge.spoil(Fault::errorAfterApproval, member, componentDied());
        }
        if (killed) {
            noteMet(Fault::programKilledAfterAnswer);
            ground_.dark = true;
        }
    };
}

void Shop::armMachine(const Faults& faults) {
    test::FaultPlan& plan = counter_->desktop.faults;
    if (faults.count(Fault::registryRefusal) != 0) {
        plan.failAt(test::Port::registry, dice_.between(1, 30), 5);
    } else if (faults.count(Fault::localeFailure) != 0) {
        plan.failAt(test::Port::locale, dice_.between(1, 40), 5);
    }
    counter_->boxes.refuseNext = faults.count(Fault::boxNotShown) != 0;
}

/// Notes which of the armed faults came up.
void Shop::noteWhatStruck(const Faults& faults) {
    const auto count = [&](Fault fault, bool struck) {
        if (struck && faults.count(fault) != 0) {
            noteMet(fault);
        }
    };
    for (const auto& [fault, trouble] : kDisk) {
        count(fault, ground_.disk.struck(trouble));
    }
    for (const auto& [fault, trouble] : kLine) {
        count(fault, ground_.line.struck.count(trouble) != 0);
    }
    for (const auto& [fault, trouble] : kHost) {
        count(fault, host_.struck.count(trouble) != 0);
    }
    for (const Fault fault :
         {Fault::wrongTypedResult, Fault::wrongTypedField, Fault::errorAfterApproval,
          Fault::errorBeforeOperation, Fault::componentDiedAfterAnswer}) {
        count(fault, counter_->charge.struck().count(fault) != 0);
    }
    // One of the two at a time.
    const bool reached = counter_->desktop.faults.reached();
    const bool registry = faults.count(Fault::registryRefusal) != 0;
    count(registry ? Fault::registryRefusal : Fault::localeFailure, reached);
    count(Fault::boxNotShown, !counter_->boxes.refuseNext);
}

void Shop::disarm(const Faults& faults) {
    if (std::exchange(armed_, false)) {
        noteWhatStruck(faults);
    }
    counter_->desktop.faults.clear();
    counter_->charge.forgive();
    counter_->charge.onAnswer = [] {};
    counter_->boxes.refuseNext = false;
    counter_->desktop.record.forget();
    counter_->desktop.registry.forgetCalls();
    host_.troubles.clear();
    host_.struck.clear();
    ground_.disk.heal();
    deliverLate();
    ground_.line.troubles.clear();
    ground_.line.struck.clear();
    ground_.line.dead = false;
}

void Shop::deliverLate() {
    ground_.disk.undisturbed(
        [this] { ground_.line.deliver(ground_.disk, ground_.settings.settings.dataFolder); });
}

void Shop::meddle(const Faults& faults) {
    if (meddled_ || ground_.dark || !counter_->isOpen()) {
        return;
    }
    meddled_ = true;
    test::Robot& hands = *counter_->desktop.robot;
    pressKeys(faults);
    if (met(faults, Fault::swipeWhileBusy)) {
        hands.typeText("%B5555555555554444^OTHER/CARD^3012101000000000?\r");
        hands.letTimePass(2500);
    }
    if (met(faults, Fault::cancelWhileBusy)) {
        counter_->press("cmdCancel");
    }
    if (met(faults, Fault::otherTypeWhileBusy)) {
        counter_->choose((entry().type + 1) % transtype::count);
    }
    if (met(faults, Fault::closeBoxWhileBusy)) {
        hands.closeBox(counter_->form());
    }
    if (met(faults, Fault::secondInstance)) {
        startSecondInstance();
    }
    if (met(faults, Fault::otherTillWhileBusy)) {
        chargeAtOtherTill();
    }
}

void Shop::pressKeys(const Faults& faults) {
    test::Robot& hands = *counter_->desktop.robot;
    if (met(faults, Fault::doubleClick)) {
        counter_->press("cmdSubmit");
        counter_->press("cmdSubmit");
    }
    if (met(faults, Fault::accessKeyRepeated)) {
        hands.accessKey('S');
        hands.accessKey('S');
    }
    if (met(faults, Fault::heldKeys)) {
        hands.key(test::keycode::enter);
        hands.key(test::keycode::space);
    }
}

void Shop::meddleOverBox(const Faults& faults, const Message& box) {
    judge_.look(box, entry(), counter_->charge.raised);
    if (box.buttons != MessageButtons::ok || meddlingOverBox_ || !counter_->isOpen()) {
        return;
    }
    meddlingOverBox_ = true;
    test::Robot& hands = *counter_->desktop.robot;
    if (faults.count(Fault::doubleClick) != 0) {
        counter_->press("cmdSubmit");
    }
    if (counter_->isOpen() && met(faults, Fault::swipeOverBox)) {
        hands.typeText("%B5555555555554444^OTHER/CARD^3012101000000000?");
        hands.letTimePass(2500);
    }
    meddlingOverBox_ = false;
}

/// The program is started once more at the same till; whoever gets a form submits the entry there.
void Shop::startSecondInstance() {
    Counter second(ground_, host_, counter_->desktop.clock.now());
    second.charge.onAnswer = [] {};
    second.start();
    if (second.isOpen()) {
        report_.complain("a second instance runs");
        second.fill(entry());
        second.press("cmdSubmit");
    } else if (second.boxes.seen.size() != 1 ||
               second.boxes.seen.front().title != "Application Is Running") {
        report_.complain("a second instance does not say why it ends");
    }
    if (second.charge.loaded()) {
        report_.complain("a second instance made a charge component");
    }
}

void Shop::moveClock(const Faults& faults) {
    test::FakeClock& clock = counter_->desktop.clock;
    constexpr int kHour = 3'600'000;
    if (met(faults, Fault::clockForward)) {
        clock.advance(static_cast<std::uint64_t>(dice_.between(1, 40)) * kHour);
    }
    if (faults.count(Fault::clockBack) != 0) {
        DateTime back = clock.now();
        back.hour = dice_.below(back.hour + 1);
        back.minute = dice_.below(back.minute + 1);
        if (back.hour != clock.now().hour || back.minute != clock.now().minute) {
            noteMet(Fault::clockBack);
        }
        clock.set(back);
    }
}

void Shop::putClockBack(int seconds) {
    DateTime back = counter_->desktop.clock.now();
    const int sinceMidnight = (back.hour * 60 + back.minute) * 60 + back.second;
    const int wanted = std::max(0, sinceMidnight - seconds);
    back.hour = wanted / 3600;
    back.minute = wanted / 60 % 60;
    back.second = wanted % 60;
    counter_->desktop.clock.set(back);
}

/// Another till on the same files, which has to wait for its turn.
void Shop::chargeAtOtherTill() {
    TillClock clock(counter_->desktop.clock);
    const std::string key = ground_.lastKey;
    const auto other = makeService(ground_, clock);
    other->fields().set(charge::Field::CardNumber, "4111111111111111");
    other->fields().set(charge::Field::ExpirationDate, "3-2030");
    other->fields().set(charge::Field::Amount, "1.00");
    other->fields().set(charge::Field::InvoiceNumber, "OTHER");
    other->settleOpenOperations();
    try {
        other->run(charge::Operation::Charge, {});
        report_.complain("another till charged in the middle of an operation");
    } catch (const com::ComponentError&) {
        // Nothing was sent.
    }
    ground_.lastKey = key;
}

} // namespace tollvane::simulation
