#include "tests/proof/faults/Judge.h"

#include "gateway/TransactionType.h"
#include "tests/proof/faults/Answers.h"

#include <algorithm>
#include <sstream>

namespace tollvane::test {

namespace {

constexpr int kHeldByAnOpenForm = 2; // environment and charge component

std::string firstLine(const std::string& text) {
    return text.substr(0, text.find('\r'));
}

std::string shownAs(const Message& box) {
    std::ostringstream out;
    out << box;
    return out.str();
}

bool isUsual(const Message& box, const std::vector<Message>& usual) {
    return std::ranges::any_of(usual, [&box](const Message& known) {
        return known.title == box.title && firstLine(known.text) == firstLine(box.text);
    });
}

/// Refusals and errors of an entry that a failed change left incomplete, and of amounts that
/// cannot be read without the locale.
bool tellsOfTheDesktop(const Call& call, const Message& box) {
    const auto says = [&box](const char* text) { return box.text.find(text) != std::string::npos; };
    switch (call.callee) {
    case Callee::boxes: return says("7, Planned failure");
    case Callee::locale:
        return says("5, The decimal sign cannot be read") || says("Error: 13, Type mismatch");
    case Callee::controls:
        return says("7, Planned failure") || says("Error: 381, Invalid property array index") ||
               box.title == "Invalid Field" || box.title == "Required Field Missing" ||
               box.title == "Card Security Code Not Entered";
    default: return false;
    }
}

} // namespace

void Judge::boxes(const std::vector<Message>& shown, const std::vector<Message>& usual,
                  const Call& call, const Mode& mode) {
    const Expectation expected = expectationOf(call, mode);
    std::size_t told = 0;
    for (const Message& box : shown) {
        if (expected.told && expected.told->isTold(box)) {
            ++told;
        } else if (!isUsual(box, usual) && expected.follows.count(box.title) == 0 &&
                   !(rig_.sabotage.anyDead() && tellsOfADeadProcess(box)) &&
                   !tellsOfTheDesktop(call, box)) {
            wrong("unexpected box " + shownAs(box));
        }
    }
    const bool mayRepeat = rig_.sabotage.anyDead();
    if (expected.told && (told == 0 || (told > 1 && !mayRepeat))) {
        wrong("told " + std::to_string(told) + " times: [" + expected.told->title + "] \"" +
              expected.told->text + "\"");
    }
    const bool othersStay = !expected.told && !expected.mayReplaceOthers &&
                            call.callee != Callee::controls && call.callee != Callee::locale &&
                            expected.follows.empty();
    for (const Message& box : usual) {
        if (othersStay && !isUsual(box, shown)) {
            wrong("missing box " + shownAs(box));
        }
    }
}

void Judge::money(const std::vector<Message>& shown, const Call& call, const Mode& mode) {
    const auto& operations = rig_.till.desktop.charge.operations();
    const std::size_t before = rig_.operationsBefore;
    wrongUnless(operations.size() <= before + 1, "charged more than once");
    wrongUnless(rig_.till.desktop.hostData.posted.size() <= operations.size(),
                "posted more than was charged");
    const bool decided = operations.size() > before && operations.back().approved;
    const Outcome outcome =
        outcomeSaid(call, mode).value_or(decided ? Outcome::approval : Outcome::failure);
    const auto saw = [&shown](const char* title) {
        return std::ranges::any_of(shown, [&](const Message& box) { return box.title == title; });
    };
    wrongUnless(outcome == Outcome::failure || !saw("Authorization Failed"),
                "a decline was shown that is none");
    wrongUnless(outcome == Outcome::approval || !saw("Approved"),
                "an approval was shown that is none");
    if (operations.size() == before) {
        return;
    }
    const Variant amount = operations.back().property("Amount");
    const auto* money = std::get_if<Money>(&amount);
    wrongUnless(money != nullptr && *money == Money::fromUnits(25),
                "sent the amount " + variantText(amount));
}

void Judge::form() {
    for (const std::string& error : rig_.till.desktop.escaped.noted()) {
        wrong("an error left a handler: " + error);
    }
    Till& till = rig_.till;
    if (!till.isOpen()) {
        return;
    }
    wrongUnless(till.form().mousePointer() == MousePointer::standard, "the hourglass stayed");
    for (const char* name : {"cmdCancel", "cmdModify"}) {
        wrongUnless(till.button(name).enabled(), std::string(name) + " is disabled");
    }
    for (int type = 0; type < transtype::count; ++type) {
        wrongUnless(till.kind(type).enabled(), "type " + std::to_string(type) + " is disabled");
    }
    fields();
    const Control* active = till.form().activeControl();
    wrongUnless(active != nullptr, "no control has the focus");
    wrongUnless(active == nullptr || (active->enabled() && active->visible()),
                "the focus is in a control that cannot have it");
}

void Judge::fields() {
    struct Use {
        const char* field;
        bool charge, refund, voiding;
    };
    Till& till = rig_.till;
    const bool swiped = !till.text("txtMagStripe").empty();
    const Use all[] = {{"cmdSubmit", true, true, true},
                       {"txtAmount", true, true, true},
                       {"txtCardName", true, false, false},
                       {"txtCardNumber", true, true, false},
                       {"txtCardCode", !swiped, false, false},
                       {"cboExpMonth", true, false, false},
                       {"cboExpYear", true, false, false},
                       {"chkTaxExempt", true, false, false},
                       {"txtTaxAmount", !till.check("chkTaxExempt").checked(), false, false},
                       {"chkVoiceAuth", true, false, false},
                       {"txtAuthNum", till.check("chkVoiceAuth").checked(), false, false},
                       {"txtTransactionNumber", false, true, true},
                       {"txtBillToStreet", true, false, false},
                       {"txtBillToCity", true, false, false},
                       {"cboBillToState", true, false, false},
                       {"txtBillToZip", true, false, false}};
    const int type = till.program().TransType();
    wrongUnless(till.kind(type).selected(), "the selected type is another");
    for (const Use& row : all) {
        const bool usable = type == transtype::charge   ? row.charge
                            : type == transtype::refund ? row.refund
                                                        : row.voiding;
        const bool enabled = till.form().control<Control>(row.field).enabled();
        wrongUnless(enabled == usable, std::string(row.field) + (enabled ? " can" : " cannot") +
                                           " be used in type " + std::to_string(type));
    }
}

void Judge::life(const std::vector<Message>& shown, const Call& call, const Mode& mode) {
    if (rig_.till.isOpen()) {
        // A number that is not 0 is the environment's yes.
        const bool saidYes = mode.how == Mode::How::answers &&
                             (call.name == "login.Login" || call.name == "environment.HasSecurity");
        wrongUnless(!scenario_.isRefused || saidYes, "the operator was let in");
        return;
    }
    if (scenario_.isStart) {
        wrongUnless(scenario_.isRefused || !shown.empty(), "the start failed without a word");
    } else {
        wrongUnless(scenario_.isEnd, "the form closed after " + call.text());
    }
}

void Judge::belongings() {
    const int held = rig_.till.isOpen() ? kHeldByAnOpenForm : 0;
    if (rig_.till.isOpen() || !scenario_.isStart) {
        wrongUnless(rig_.sabotage.liveObjects == held, std::to_string(rig_.sabotage.liveObjects) +
                                                           " objects are held instead of " +
                                                           std::to_string(held));
    }
    wrongUnless(rig_.till.desktop.registry.openKeys() == 0, "a registry key stayed open");
    wrongUnless(rig_.till.desktop.printers.openJobs() == 0, "a print job was kept");
}

std::string Judge::reasonForANewStart(const Call& call) {
    if (rig_.sabotage.anyDead()) {
        return "a component's process ended";
    }
    if (!rig_.till.isOpen()) {
        return scenario_.isEnd ? "the form was closed" : "the start was refused";
    }
    // A state whose name is missing from the list cannot be chosen in the form that lacks it.
    return scenario_.isStart && call.name == "resourceString" ? "a state is missing from the list"
                                                              : "";
}

void Judge::startAnew() {
    Till& till = rig_.till;
    if (till.isOpen()) {
        till.press("cmdCancel");
        wrongUnless(!till.isOpen(), "the form does not close");
        wrongUnless(rig_.sabotage.liveObjects == 0, "the closed form holds objects");
    }
    till.restart();
    wrongUnless(rig_.sabotage.liveObjects == 0, "the ended program held objects");
    for (const char* process : {"charge", "environment", "hostdata", "checker", "about"}) {
        rig_.sabotage.revive(process);
    }
    till.setCompany("Name", "Oak & Elm");
    till.desktop.environment.loggedIn = true;
    till.desktop.environment.privileges = {4};
    till.boxes();
    till.start();
    wrongUnless(till.boxes().empty(), "the new start is not clean");
}

void Judge::nextCharge(bool afterANewStart) {
    Till& till = rig_.till;
    if (afterANewStart) {
        startAnew();
    }
    if (!till.isOpen()) {
        wrong("the program does not start again");
        return;
    }
    till.boxes();
    till.choose(transtype::refund);
    till.choose(transtype::charge);
    if (till.check("chkVoiceAuth").checked()) {
        till.press("chkVoiceAuth");
    }
    rig_.fillCharge();
    const std::size_t operations = till.operations().size();
    const std::size_t posted = till.desktop.hostData.posted.size();
    till.submit();
    const std::vector<Message> boxes = till.boxes();
    wrongUnless(till.operations().size() == operations + 1 &&
                    till.desktop.hostData.posted.size() == posted + 1 && boxes.size() == 1 &&
                    boxes[0].title == "Approved",
                "the next charge does not succeed" +
                    (boxes.empty() ? std::string() : ": " + shownAs(boxes[0])));
    wrongUnless(till.operations().size() <= operations ||
                    till.lastOperation().text("Amount") == "25",
                "the next charge sent another amount");
    form();
    till.press("cmdCancel");
    wrongUnless(!till.isOpen(), "the form does not close in the end");
    wrongUnless(rig_.sabotage.liveObjects == 0, "the closed program holds objects");
}

} // namespace tollvane::test
