#include "tests/scenarios/Till.h"

#include "gateway/TransactionType.h"

#include <algorithm>
#include <stdexcept>

namespace tollvane::test {

namespace {

const std::string kSettings = "HKEY_LOCAL_MACHINE\\Software\\Norrow Programs\\Tollvane\\";
const std::string kCompany = kSettings + "Company Information";

constexpr std::uint32_t kYes = 0xFFFFFFFF;

bool isWriteOrOperation(const std::string& call) {
    return call.find(" = ") != std::string::npos || call.ends_with(")");
}

} // namespace

Message information(const std::string& title, const std::string& text) {
    return {.text = text,
            .title = title,
            .icon = MessageIcon::information,
            .buttons = MessageButtons::ok,
            .defaultButton = 1,
            .helpFile = {},
            .helpTopic = 0};
}

Message question(const std::string& title, const std::string& text, int defaultButton) {
    return {.text = text,
            .title = title,
            .icon = MessageIcon::question,
            .buttons = MessageButtons::yesNo,
            .defaultButton = defaultButton,
            .helpFile = {},
            .helpTopic = 0};
}

Till::Till(const std::function<void(TestDesktop&)>& prepare) {
    if (prepare) {
        prepare(desktop);
    }
    setCompany("Name", "Oak & Elm");
    restart();
}

void Till::start() {
    application_->Main();
}

void Till::restart() {
    application_.reset();
    application_ = std::make_unique<Application>(desktop.desktop());
}

void Till::open() {
    start();
    EXPECT_EQ(boxes(), std::vector<Message>()) << "the start is not clean";
    if (!isOpen()) {
        throw std::runtime_error("the form did not open");
    }
    desktop.record.forget();
    desktop.charge.cleared = 0;
}

bool Till::isOpen() {
    return application_->form() != nullptr && form().isOpen();
}

ChargeInfo& Till::program() {
    if (application_->form() == nullptr) {
        throw std::runtime_error("there is no form");
    }
    return *application_->form();
}

Form& Till::form() {
    return program().form();
}

std::string Till::focus() {
    const Control* active = form().activeControl();
    return active == nullptr ? std::string() : active->name();
}

void Till::set(const char* option, bool on) {
    const std::string path(option);
    const std::size_t bar = path.find('|');
    desktop.registry.addNumber(kSettings + path.substr(0, bar), path.substr(bar + 1),
                               on ? kYes : 0);
}

void Till::setCompany(const std::string& name, const std::string& text) {
    desktop.registry.addString(kCompany, name, text);
}

void Till::setCompanyLocation(std::uint32_t number) {
    desktop.registry.addNumber(kCompany, "Location", number);
}

void Till::enterExpiry(int month, int year) {
    list("cboExpMonth").setListIndex(month - 1);
    ComboBox& years = list("cboExpYear");
    for (int i = 0; i < years.count(); ++i) {
        if (years.itemData(i) == year) {
            years.setListIndex(i);
        }
    }
}

void Till::enterState(std::string_view letters) {
    ComboBox& states = list("cboBillToState");
    states.setListIndex(-1);
    for (int i = 0; i < states.count(); ++i) {
        if (states.itemText(i) == letters) {
            states.setListIndex(i);
        }
    }
}

void Till::fillCharge() {
    enter("txtCardName", "Mary Ann Smith");
    enter("txtCardNumber", "4111111111111111");
    enter("txtCardCode", "123");
    enterExpiry(3, 2027);
    enter("txtAmount", "$25.00");
    enter("txtTaxAmount", "$1.50");
    enter("txtBillToStreet", "1 Oak Street");
    enter("txtBillToCity", "Springfield");
    enterState("IL");
    enter("txtBillToZip", "62701");
    enter("txtEMail", "mary@example.org");
    enter("txtDescription", "Two chairs");
    enter("txtInvoiceNumber", "INV-1");
    enter("txtPONumber", "PO-1");
}

void Till::fillRefund() {
    choose(transtype::refund);
    enter("txtCardNumber", "1111");
    enter("txtAmount", "$25.00");
    enter("txtTransactionNumber", "7001");
}

void Till::fillVoid() {
    choose(transtype::voiding);
    enter("txtAmount", "$25.00");
    enter("txtTransactionNumber", "7001");
}

void Till::approveCharge() {
    fillCharge();
    submit();
    EXPECT_TRUE(program().TransactionApproved()) << "the charge was to be approved";
    desktop.boxes.take();
    desktop.record.forget();
}

std::vector<std::string> Till::chargeCalls() const {
    std::vector<std::string> calls;
    for (const std::string& call : desktop.record.texts()) {
        if ((call.starts_with("charge.") || call.starts_with("field ")) &&
            isWriteOrOperation(call)) {
            calls.push_back(call);
        }
    }
    return calls;
}

std::vector<std::string> Till::operations() const {
    std::vector<std::string> names;
    for (const ChargeOperation& operation : desktop.charge.operations()) {
        names.push_back(operation.name);
    }
    return names;
}

const ChargeOperation& Till::lastOperation() const {
    if (desktop.charge.operations().empty()) {
        throw std::runtime_error("no gateway operation ran");
    }
    return desktop.charge.operations().back();
}

std::string Till::held(const std::string& property) const {
    const Variant value = desktop.charge.property(property);
    if (const auto* secret = std::get_if<SecretText>(&value)) {
        return std::string(secret->view());
    }
    const auto* text = std::get_if<std::string>(&value);
    return text == nullptr ? variantText(value) : *text;
}

void Till::expectUsable() {
    EXPECT_EQ(form().mousePointer(), MousePointer::standard);
    for (const char* name : {"cmdSubmit", "cmdCancel", "cmdModify"}) {
        EXPECT_TRUE(button(name).enabled()) << name;
    }
    for (int type = 0; type < transtype::count; ++type) {
        EXPECT_TRUE(kind(type).enabled()) << "optTransType " << type;
    }
    EXPECT_TRUE(box("txtAmount").enabled());
    EXPECT_TRUE(form().isOpen());
}

} // namespace tollvane::test
