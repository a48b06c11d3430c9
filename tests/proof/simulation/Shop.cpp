// The clerk's side of the shop.

#include "tests/proof/simulation/Shop.h"

#include "gateway/TransactionType.h"

#include <algorithm>
#include <array>
#include <optional>

namespace tollvane::simulation {

namespace {

constexpr std::array<const char*, 4> kCards{"4111111111111111", "5555555555554444",
                                            "378282246310005", "6011111111111117"};
constexpr int kLastDigits = 4;
/// Amounts, in cents, that make the processor answer in some other way than with an approval.
constexpr std::array<int, 9> kOddAmounts{700'101, 700'220, 700'221, 700'360, 700'361,
                                         700'480, 700'501, 700'502, 700'503};
constexpr int kMilliseconds = 1'000;
constexpr int kDuplicateWindow = 60; // well within the processor's

Money cents(int count) {
    return Money::fromScaled(std::int64_t{count} * (Money::scale / 100));
}

} // namespace

Shop::Shop(Dice& dice, Report& report) : dice_(dice), report_(report) {
    ground_.settings.settings.testMode = dice_.percent(6);
    ground_.disk.onPowerCut = [this] { ground_.dark = true; };
    ground_.line.endProgram = [this] {
        ground_.dark = true;
        ground_.disk.setDark(true);
    };
    start();
}

void Shop::start() {
    ground_.dark = false;
    ground_.disk.setDark(false);
    ground_.disk.heal();
    counter_ = std::make_unique<Counter>(ground_, host_, now_);
    counter_->charge.onAnswer = [] {};
    counter_->start();
    if (!counter_->isOpen() || !counter_->boxes.seen.empty()) {
        report_.complain("the start is not clean");
    }
    signIn();
    watchBoxes();
}

void Shop::watchBoxes() {
    counter_->boxes.whileOpen = [this](const Message& box) {
        judge_.look(box, entry(), counter_->charge.raised);
    };
}

/// What the environment component does when an operator has signed in: it compares the books and
/// records what is missing.
void Shop::signIn() {
    setServerClock();
    judge_.lookBeforeSignIn(entries_, told_);
    const auto wide = [](const std::string& text) {
        return std::wstring(text.begin(), text.end());
    };
    const auto compare = [&] {
        return environment::missingOfTheWeek(
            [&](int days) { return wide(counter_->charge.service().approvedPayments(days)); },
            [&](int days) { return wide(host_.storedPayments(days)); });
    };
    try {
        const auto missing = compare();
        judge_.lookAfterSignIn(missing);
        for (const environment::MissingPayment& each : missing) {
            if (!host_.recordOnce(environment::recordOf(each))) {
                report_.complain("what was missing is there");
            }
        }
        if (!compare().empty()) {
            report_.complain("something is missing after it was recorded");
        }
    } catch (const Error&) {
        report_.trace.line("  cannot be compared");
    }
}

void Shop::setServerClock() {
    host_.clock.milliseconds =
        TillClock(counter_->desktop.clock).now().epochSeconds * kMilliseconds;
}

void Shop::stop() {
    now_ = counter_->desktop.clock.now();
    const std::string wrong = counter_->complaint();
    if (!ground_.dark && !wrong.empty()) {
        report_.complain(wrong);
    }
    counter_.reset();
}

bool Shop::restartIfEnded() {
    if (!ground_.dark && counter_->isOpen()) {
        return false;
    }
    const bool inCall = counter_->charge.endedInCall;
    report_.trace.line("  starts again");
    ++report_.restarts;
    stop();
    start();
    return inCall;
}

Entry Shop::nextEntry() {
    Entry entry;
    entry.invoice = "E" + std::to_string(entries_.size() + 1);
    entry.amount =
        dice_.percent(12) ? cents(dice_.pick(kOddAmounts)) : cents(dice_.between(6, 690'000));
    entry.card = dice_.pick(kCards);
    const int kind = dice_.below(10);
    entry.type = kind < 7 ? transtype::charge : kind < 9 ? transtype::refund : transtype::voiding;
    if (entry.type == transtype::charge) {
        entry.byTelephone = dice_.percent(15);
        entry.swiped = !entry.byTelephone && dice_.percent(30);
        entry.withCardCode = dice_.percent(95);
        entry.withState = dice_.percent(80);
    } else {
        refer(entry);
    }
    return entry;
}

/// A refund or void of something that may be there, in an amount that may fit.
void Shop::refer(Entry& entry) {
    auto ledger = judge_.ledger();
    if (dice_.percent(85)) {
        std::erase_if(ledger, [](const charge::LedgerEntry& each) {
            return !each.approved() || each.lastFour.empty();
        });
    }
    entry.reference = ledger.empty() ? "1000000001" : "";
    if (!ledger.empty()) {
        const charge::LedgerEntry& earlier = dice_.pick(ledger);
        entry.reference = earlier.answer.transactionId.empty() ? "1" : earlier.answer.transactionId;
        entry.card = earlier.lastFour;
        const auto whole = static_cast<int>(earlier.amount.scaled() / (Money::scale / 100));
        entry.amount = cents(dice_.percent(50) ? whole : dice_.between(1, whole));
    }
    if (entry.card.size() > kLastDigits) {
        entry.card = entry.card.substr(entry.card.size() - kLastDigits);
    }
}

void Shop::serve(const Faults& faults) {
    entries_.push_back(nextEntry());
    struck_.clear();
    struckInCall_.clear();
    ++report_.transactions;
    std::string named =
        entry().invoice + " type " + std::to_string(entry().type) + " " + entry().amountText();
    for (const Fault fault : faults) {
        report_.drew(fault);
        named += std::string(", ") + nameOf(fault);
    }
    report_.trace.line(named);
    if (met(faults, Fault::cancelAndStartAgain)) {
        counter_->press("cmdCancel");
        restartIfEnded();
    }
    counter_->desktop.clock.advance(
        static_cast<std::uint64_t>(dice_.between(5, 300) * kMilliseconds));
    moveClock(faults);
    setServerClock();
    counter_->fill(entry());
    submit(faults);
    secondTry(faults);
    printReceipt(faults);
    disarm(faults);
    report_.endedInCallLeft += restartIfEnded() ? 1 : 0;
    report_.hit(struck_, struckInCall_);
    report_.trace.line(
        "  books of " +
        std::to_string(ground_.disk.contents(judge_.ledgerPath().plainText()).size()) +
        " bytes, store of " + std::to_string(host_.count()));
}

void Shop::submit(const Faults& faults) {
    arm(faults);
    const std::string before = counter_->status();
    pressInAHurry(faults);
    readScreen(before);
    entry().interrupted = entry().interrupted || ground_.dark;
}

void Shop::pressInAHurry(const Faults& faults) {
    Counter& counter = *counter_;
    ++report_.submissions;
    if (faults.count(Fault::accessKeyRepeated) != 0) {
        counter.desktop.robot->accessKey('S');
    } else {
        counter.press("cmdSubmit");
    }
    if (ground_.dark || !counter.isOpen()) {
        return;
    }
    if (met(faults, Fault::doubleClick)) {
        counter.press("cmdSubmit");
    }
    // The first press may have failed early, and the form be closed in a later one.
    if (counter.isOpen() && met(faults, Fault::accessKeyRepeated)) {
        counter.desktop.robot->accessKey('S');
        if (counter.isOpen()) {
            counter.desktop.robot->accessKey('S');
        }
    }
    for (int i = 0; i < 3 && met(faults, Fault::heldKeys) && counter.isOpen(); ++i) {
        counter.desktop.robot->key(test::keycode::enter);
        if (counter.isOpen()) {
            counter.desktop.robot->key(test::keycode::space);
        }
    }
}

void Shop::readScreen(const std::string& statusBefore) {
    bool error = false;
    for (const Message& box : counter_->boxes.seen) {
        report_.trace.line("  [" + box.title + "] " + box.text);
        report_.declined += box.title == "Authorization Failed" ? 1 : 0;
        error = error || box.text.starts_with("There was an error getting an approval.");
    }
    counter_->boxes.seen.clear();
    report_.errors += error ? 1 : 0;
    const std::string status = counter_->status();
    if (ground_.dark || status == statusBefore) {
        return;
    }
    report_.trace.line("  status " + status);
    constexpr std::string_view kTold = "Approved, but perhaps not recorded: ";
    const std::string newest = status.substr(0, status.find("   "));
    if (newest.find(entry().amountText()) == std::string::npos) {
        return;
    }
    if (newest.starts_with(kTold) && newest.find(", ") != std::string::npos) {
        const std::string id = newest.substr(kTold.size());
        told_.insert(id.substr(0, id.find(',')));
    }
    entry().lookedUp = entry().lookedUp || newest.find("See the transaction log") == 0 ||
                       newest.starts_with(kTold);
}

/// The clerk, or the one after a crash, tries the same entry again without a look into the log.
void Shop::secondTry(const Faults& faults) {
    if (faults.count(Fault::hastySecondTry) == 0) {
        return;
    }
    if (dice_.percent(50)) {
        deliverLate();
        ground_.line.dead = false;
    }
    const bool again = ground_.dark || !counter_->isOpen();
    if (again || dice_.percent(50)) {
        disarm(faults);
    }
    report_.endedInCallTriedAgain += restartIfEnded() ? 1 : 0;
    if (again) {
        counter_->fill(entry());
    }
    noteMet(Fault::hastySecondTry);
    if (faults.count(Fault::clockBack) != 0) {
        putClockBack(dice_.below(kDuplicateWindow));
    }
    const std::string before = counter_->status();
    ++report_.submissions;
    counter_->press("cmdSubmit");
    readScreen(before);
    entry().interrupted = entry().interrupted || ground_.dark;
}

void Shop::printReceipt(const Faults& faults) {
    if (ground_.dark || !counter_->isOpen() || !counter_->program().TransactionApproved()) {
        return;
    }
    // A box takes the keys; only those that were on their way to the form in a submission are
    // tried.
    watchBoxes();
    test::FakePrinters& printers = counter_->desktop.printers;
    const Error trouble(482, "printer", "Printer error");
    const Error missing(484, "printer", "No default printer");
    const auto planned = [&](Fault fault, const Error& error) {
        return faults.count(fault) != 0 ? std::optional<Error>(error) : std::nullopt;
    };
    printers.missing = planned(Fault::printerMissing, missing);
    printers.refusal = planned(Fault::printerRefuses, trouble);
    printers.refusalAtEnd = planned(Fault::printerFailsAtEnd, trouble);
    if (faults.empty() ? dice_.percent(10)
                       : printers.missing || printers.refusal || printers.refusalAtEnd) {
        counter_->desktop.robot->chooseMenu(counter_->form(), "mnu_PrintReceipt");
        noteHowItPrinted();
    }
    printers.missing.reset();
    printers.refusal.reset();
    printers.refusalAtEnd.reset();
    printers.documents.clear();
    for (const Message& box : counter_->boxes.seen) {
        report_.trace.line("  [" + box.title + "] " + box.text);
    }
    counter_->boxes.seen.clear();
    if (counter_->isOpen() && !counter_->program().TransactionApproved()) {
        report_.complain("printing took the approval away");
    }
}

void Shop::noteHowItPrinted() {
    const test::FakePrinters& printers = counter_->desktop.printers;
    if (printers.missing && std::ranges::any_of(counter_->boxes.seen, [&](const Message& box) {
            return box.text.find(printers.missing->description()) != std::string::npos;
        })) {
        noteMet(Fault::printerMissing);
    }
    for (const auto& document : printers.documents) {
        if (printers.refusal && !document->opened) {
            noteMet(Fault::printerRefuses);
        }
        if (printers.refusalAtEnd && document->opened && !document->ended) {
            noteMet(Fault::printerFailsAtEnd);
        }
    }
}

void Shop::close() {
    restartIfEnded();
    counter_->press("cmdCancel");
    if (counter_->isOpen()) {
        report_.complain("the program does not end");
    }
    stop();
    start(); // settles what is open
    stop();
    judge_.closeBooks(entries_);
    judge_.foldBooks(report_.trace);
}

} // namespace tollvane::simulation
