#include "tests/proof/simulation/SimulatedHost.h"

#include "components/hostdata/HostDataError.h"
#include "components/hostdata/payments/PaymentTable.h"
#include "platform/Error.h"

#include <utility>

namespace tollvane::simulation {

namespace {

constexpr std::int32_t kPayment = 17;

Error serverGone() {
    return {-2147023174, "hostdata", "The RPC server is unavailable."};
}

Error refused() {
    return {-2147217887, "payment", "The value cannot be taken."};
}

hostdata::FieldValue fieldValue(const Variant& value) {
    if (const auto* money = std::get_if<Money>(&value)) {
        return money->scaled();
    }
    if (const auto* secret = std::get_if<SecretText>(&value)) {
        return std::string(secret->view());
    }
    return asText(value);
}

template <class Body>
auto asError(Body&& body) {
    try {
        return body();
    } catch (const hostdata::HostDataError& error) {
        throw Error(errornumber::applicationBase + static_cast<long>(error.failure()), "dcZenda32",
                    error.what());
    }
}

std::string textOf(const hostdata::FieldValue& value) {
    const auto* text = std::get_if<std::string>(&value);
    return text == nullptr ? std::string() : *text;
}

/// The components speak in wide letters; these texts have plain ones only.
std::string narrow(const std::wstring& text) {
    std::string narrowed;
    for (const wchar_t c : text) {
        narrowed += static_cast<char>(c);
    }
    return narrowed;
}

} // namespace

SimulatedHost::SimulatedHost(const bool& dark) : dark_(dark) {}

bool SimulatedHost::meets(HostTrouble trouble) {
    if (troubles.count(trouble) == 0) {
        return false;
    }
    struck.insert(trouble);
    return true;
}

void SimulatedHost::requireLife(HostTrouble deadly) {
    if (dark_ || meets(deadly)) {
        throw serverGone();
    }
}

void SimulatedHost::countCall(int& calls) {
    requireLife(HostTrouble::gone);
    if (calls++ == refusedCall && meets(HostTrouble::recordRefused)) {
        throw refused();
    }
}

ObjectRef SimulatedHost::object(test::AutomationRecord& record) {
    auto server = std::make_shared<test::FakeObject>("hostdata", record);
    server->method("SafeCreateObj", [this, &record](std::vector<Argument>& arguments) -> Variant {
        requireLife(HostTrouble::gone);
        if (asInt(arguments.at(0).value) != kPayment) {
            throw refused();
        }
        return makeRecord(record);
    });
    return server;
}

ObjectRef SimulatedHost::makeRecord(test::AutomationRecord& record) {
    auto payment = std::make_shared<hostdata::PaymentRecord>(store_, clock, "ada", "Main Street");
    auto calls = std::make_shared<int>(0);
    auto made = std::make_shared<test::FakeObject>("payment", record);
    made->method("GetrecbyIDNumber", [=, this](std::vector<Argument>& arguments) -> Variant {
        countCall(*calls);
        asError([&] { payment->getRecordById(asInt(arguments.at(0).value)); });
        return {};
    });
    made->method("AddNew", [=, this](std::vector<Argument>&) -> Variant {
        countCall(*calls);
        payment->addNew();
        return {};
    });
    made->indexed("Item", [=, this, &record](std::vector<Argument>& arguments) -> Variant {
        countCall(*calls);
        const std::size_t field =
            asError([&] { return hostdata::paymentField(asText(arguments.at(0).value)); });
        auto item = std::make_shared<test::FakeObject>("item", record);
        item->property(
            "Value", [] { return Variant(); },
            [=](const Variant& value) {
                asError([&] { payment->setValue(field, fieldValue(value)); });
            });
        return ObjectRef(item);
    });
    made->method("Update", [=, this](std::vector<Argument>&) -> Variant {
        update(*payment);
        return {};
    });
    return made;
}

void SimulatedHost::update(hostdata::PaymentRecord& payment) {
    requireLife(HostTrouble::updateNeverArrived);
    if (meets(HostTrouble::storeFull)) {
        throw Error(errornumber::applicationBase + static_cast<long>(hostdata::Failure::storeFull),
                    "dcZenda32", "The disk is full.");
    }
    asError([&] { payment.update(); });
    requireLife(HostTrouble::updateAnswerLost);
}

std::int64_t SimulatedHost::count() {
    return store_.read(
        [](hostdata::Database& database) { return hostdata::PaymentTable(database).count(); });
}

std::string SimulatedHost::storedPayments(int days) {
    requireLife(HostTrouble::gone);
    return hostdata::storedPayments(store_, clock, days);
}

bool SimulatedHost::recordOnce(const std::vector<environment::RecordValue>& values) {
    requireLife(HostTrouble::gone);
    hostdata::PaymentRecord made(store_, clock, "ada", "Main Street");
    made.addNew();
    for (const environment::RecordValue& each : values) {
        const auto* text = std::get_if<std::wstring>(&each.value);
        made.setValue(hostdata::paymentField(narrow(each.field)),
                      text != nullptr ? hostdata::FieldValue(narrow(*text))
                                      : hostdata::FieldValue(std::get<std::int64_t>(each.value)));
    }
    return made.updateOnce();
}

std::vector<StoredPayment> SimulatedHost::payments() {
    return store_.read([](hostdata::Database& database) {
        hostdata::PaymentTable table(database);
        std::vector<StoredPayment> found;
        for (std::int64_t id = 1; id <= table.count(); ++id) {
            const hostdata::PaymentValues values = table.find(id).value();
            const auto value = [&](const char* name) {
                return values[hostdata::paymentField(name)];
            };
            const auto* scaled =
                std::get_if<std::int64_t>(&values[hostdata::paymentField("Amount")]);
            found.push_back(
                {textOf(value("TransID")), Money::fromScaled(scaled == nullptr ? 0 : *scaled),
                 textOf(value("Approval")), textOf(value("Account")), textOf(value("PaidBy"))});
        }
        return found;
    });
}

} // namespace tollvane::simulation
