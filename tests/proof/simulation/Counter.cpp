#include "tests/proof/simulation/Counter.h"

#include "gateway/TransactionType.h"

#include <array>
#include <utility>

namespace tollvane::simulation {

namespace {

constexpr int kSwipePause = 2500; // milliseconds until the last key of a swipe is judged
constexpr int kYearsAhead = 3;

} // namespace

MessageAnswer SimulatedBoxes::show(const Message& message) {
    if (dark_) {
        return MessageAnswer::no;
    }
    if (refuseNext) {
        refuseNext = false;
        throw Error(7, "desktop", "Out of memory");
    }
    seen.push_back(message);
    if (whileOpen) {
        whileOpen(message);
    }
    return message.buttons == MessageButtons::ok ? MessageAnswer::ok : answer;
}

FactsAtTill::~FactsAtTill() {
    if (place_) {
        places_.erase(*place_);
    }
}

bool FactsAtTill::anotherInstanceRuns() {
    if (!std::exchange(asked_, true) && places_.insert(productName()).second) {
        place_ = productName();
    }
    return !place_;
}

Counter::Counter(ChargeGround& ground, SimulatedHost& host, const DateTime& now)
    : facts(desktop.faults, ground.places), boxes(ground.dark),
      charge(ground, clockAt(now), desktop.record), application_(furnish(host)) {}

test::FakeClock& Counter::clockAt(const DateTime& now) {
    desktop.clock.set(now);
    return desktop.clock;
}

Desktop Counter::furnish(SimulatedHost& host) {
    desktop.registry.addString(
        "HKEY_LOCAL_MACHINE\\Software\\Norrow Programs\\Tollvane\\Company Information", "Name",
        "Oak & Elm");
    desktop.use(boxes);
    desktop.use(facts);
    desktop.automation.registerProgId("ZendaSwiftill.Tollvane", [this] { return charge.load(); });
    desktop.automation.registerProgId("dcZenda32.dcclsZenda32",
                                      [this, &host] { return host.object(desktop.record); });
    return desktop.desktop();
}

bool Counter::isOpen() {
    return application_.form() != nullptr && form().isOpen();
}

std::string Counter::status() {
    return form().control<StatusBar>("sbrStatus").panelText("STATUS");
}

void Counter::fill(const Entry& entry) {
    // Another kind and back again: that starts a new entry after an approval.
    choose((entry.type + 1) % transtype::count);
    choose(entry.type);
    if (entry.swiped) {
        swipe(entry.card);
    }
    enter("txtInvoiceNumber", entry.invoice);
    enter("txtAmount", entry.amountText());
    if (entry.type != transtype::charge) {
        enter("txtTransactionNumber", entry.reference);
        enter("txtCardNumber", entry.type == transtype::refund ? entry.card : std::string());
        return;
    }
    if (form().control<CheckBox>("chkVoiceAuth").checked() != entry.byTelephone) {
        press("chkVoiceAuth");
    }
    enter("txtAuthNum", entry.byTelephone ? "V12345" : "");
    enter("txtTaxAmount", "$0.05");
    fillAddress();
    // Without a state the program asks about the address.
    form().control<ComboBox>("cboBillToState").setListIndex(entry.withState ? 14 : -1);
    if (!entry.swiped) {
        fillCard(entry);
    }
}

void Counter::fillAddress() {
    constexpr std::array<std::array<const char*, 2>, 5> rows{{{"txtBillToStreet", "1 Oak Street"},
                                                              {"txtBillToCity", "Springfield"},
                                                              {"txtBillToZip", "62701"},
                                                              {"txtDescription", "Two chairs"},
                                                              {"txtPONumber", "PO-1"}}};
    for (const auto& [name, text] : rows) {
        enter(name, text);
    }
}

void Counter::fillCard(const Entry& entry) {
    enter("txtCardName", "Mary Ann Smith");
    enter("txtCardNumber", entry.card);
    enter("txtCardCode", entry.withCardCode ? "123" : "");
    form().control<ComboBox>("cboExpMonth").setListIndex(2);
    ComboBox& years = form().control<ComboBox>("cboExpYear");
    const int wanted = desktop.clock.now().year + kYearsAhead;
    for (int i = 0; i < years.count(); ++i) {
        if (years.itemData(i) == wanted) {
            years.setListIndex(i);
        }
    }
}

void Counter::swipe(std::string_view card) {
    if (form().activeControl() == nullptr) {
        desktop.robot->click(form(), "txtCardName");
    }
    desktop.robot->typeText("%B" + std::string(card) + "^SMITH/MARY ANN^3012101000000000?");
    desktop.robot->letTimePass(kSwipePause);
}

std::string Counter::complaint() {
    std::string found;
    for (const std::string& error : desktop.escaped.noted()) {
        found += "an error left a handler: " + error + "; ";
    }
    desktop.escaped.forget();
    if (!isOpen()) {
        return found;
    }
    if (form().mousePointer() != MousePointer::standard) {
        found += "the pointer is not the usual one; ";
    }
    for (const char* name : {"cmdSubmit", "cmdCancel", "cmdModify"}) {
        if (!form().control<Button>(name).enabled()) {
            found += std::string(name) + " is not enabled; ";
        }
    }
    if (!box("txtAmount").enabled()) {
        found += "the amount cannot be entered; ";
    }
    return found;
}

} // namespace tollvane::simulation
