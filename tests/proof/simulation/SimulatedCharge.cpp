#include "tests/proof/simulation/SimulatedCharge.h"

#include "components/charge/core/TransactionFields.h"
#include "components/common/ComponentError.h"

#include <chrono>
#include <utility>

namespace tollvane::simulation {

namespace {

using charge::Field;
using charge::Operation;

constexpr long kObjectGone = -2147417848;
constexpr std::uint32_t kRunTimeErrors = 0x800A0000U;

struct TextProperty {
    const char* name;
    Field field;
    bool secret;
};

constexpr TextProperty kTexts[] = {{"CardNumber", Field::CardNumber, true},
                                   {"FirstName", Field::FirstName, false},
                                   {"LastName", Field::LastName, false},
                                   {"ExpirationDate", Field::ExpirationDate, false},
                                   {"StreetAddress", Field::Address, false},
                                   {"City", Field::City, false},
                                   {"State", Field::State, false},
                                   {"ZipCode", Field::Zip, false},
                                   {"InvoiceNumber", Field::InvoiceNumber, false},
                                   {"Description", Field::Description, false},
                                   {"CustomerEmail", Field::Email, false},
                                   {"Track1", Field::TrackOne, true}};

void setText(charge::ChargeService& service, Field field, const Variant& value) {
    if (const auto* secret = std::get_if<SecretText>(&value)) {
        service.fields().set(field, secret->view());
    } else {
        service.fields().set(field, asText(value));
    }
}

Error asError(const com::ComponentError& error) {
    const bool runTime = (error.number() & 0xFFFF0000U) == kRunTimeErrors;
    const auto number = runTime ? static_cast<long>(error.number() & 0xFFFFU)
                                : static_cast<long>(static_cast<std::int32_t>(error.number()));
    return {number, error.source(), error.description()};
}

Error gone() {
    return {kObjectGone, "charge", "The object invoked has disconnected from its clients."};
}

} // namespace

charge::Moment TillClock::now() {
    using namespace std::chrono;
    const DateTime now = clock_.now();
    const sys_days date = year(now.year) / month(static_cast<unsigned>(now.month)) /
                          day(static_cast<unsigned>(now.day));
    const sys_seconds moment = date + hours(now.hour) + minutes(now.minute) + seconds(now.second);
    return {now.year,
            now.month,
            now.day,
            now.hour,
            now.minute,
            now.second,
            moment.time_since_epoch().count()};
}

std::string ChargeGround::newKey() {
    lastKey = "KEY";
    for (int number = ++keys; number > 0; number /= 26) {
        lastKey += static_cast<char>('A' + number % 26);
    }
    lastKey += "END";
    return lastKey;
}

std::unique_ptr<charge::ChargeService> makeService(ChargeGround& ground, charge::Clock& clock) {
    return std::make_unique<charge::ChargeService>(charge::ServiceParts{
        ground.disk, clock, ground.settings, [&ground] { return ground.newKey(); },
        [&ground](const charge::Settings& settings) {
            return std::make_unique<ProcessorOnLine>(ground.disk, settings.dataFolder, ground.line);
        }});
}

SimulatedCharge::SimulatedCharge(ChargeGround& ground, test::FakeClock& clock,
                                 test::AutomationRecord& record)
    : ground_(ground), clock_(clock), record_(record), service_(makeService(ground, clock_)),
      object_(std::make_shared<test::FakeObject>("charge", record)) {
    addTexts();
    addMoney();
    addFields();
    addResponse();
    addOperations();
    addHousekeeping();
}

ObjectRef SimulatedCharge::load() {
    if (!std::exchange(loaded_, true)) {
        service_->settleOpenOperations();
    }
    return object_;
}

void SimulatedCharge::forgive() {
    spoilt_.clear();
    struck_.clear();
}

Variant SimulatedCharge::answer(const std::string& member, const std::function<Variant()>& own) {
    if (ground_.dark) {
        throw gone();
    }
    std::deque<Spoilt>& waiting = spoilt_[member];
    if (waiting.empty()) {
        try {
            return own();
        } catch (const com::ComponentError& error) {
            throw asError(error);
        }
    }
    const Spoilt spoilt = waiting.front();
    waiting.pop_front();
    struck_.insert(spoilt.fault);
    if (const auto* error = std::get_if<Error>(&spoilt.mischief)) {
        throw Error(*error);
    }
    return std::get<Variant>(spoilt.mischief);
}

void SimulatedCharge::take(const std::string& member, const std::function<void()>& own) {
    const std::deque<Spoilt>& waiting = spoilt_[member];
    if (!waiting.empty() && std::holds_alternative<Error>(waiting.front().mischief)) {
        answer(member, {});
    }
    if (ground_.dark) {
        throw gone();
    }
    own();
}

void SimulatedCharge::addTexts() {
    for (const TextProperty& row : kTexts) {
        object_->property(
            row.name,
            [this, row] {
                return answer(row.name, [&]() -> Variant {
                    const std::string_view text = service_->fields().get(row.field);
                    return row.secret ? Variant(SecretText(text)) : Variant(std::string(text));
                });
            },
            [this, row](const Variant& value) {
                take(row.name, [&] { setText(*service_, row.field, value); });
            });
    }
}

void SimulatedCharge::addMoney() {
    for (const auto& [name, field] :
         {std::pair("Amount", Field::Amount), std::pair("Tax", Field::Tax)}) {
        object_->property(
            name,
            [this, name = std::string(name), field = field] {
                return answer(name, [&] { return Variant(service_->fields().money(field)); });
            },
            [this, name = std::string(name), field = field](const Variant& value) {
                take(name,
                     [&] { service_->fields().setMoney(field, asMoney(value, MoneyStyle())); });
            });
    }
    object_->property(
        "TaxExempt", [this] { return Variant(service_->fields().flag(Field::TaxExempt)); },
        [this](const Variant& value) {
            service_->fields().setFlag(Field::TaxExempt, asBool(value));
        });
}

void SimulatedCharge::addFields() {
    object_->method("TransactionField", [this](std::vector<Argument>& arguments) -> Variant {
        return answer("TransactionField", [&]() -> Variant {
            const charge::FieldDefinition& definition =
                charge::fieldByName(asText(arguments.at(0).value));
            auto field = std::make_shared<test::FakeObject>("field", record_);
            field->property(
                "cTransactionFields_Value",
                [this, &definition] {
                    return Variant(std::string(service_->fields().get(definition.field)));
                },
                [this, &definition](const Variant& value) {
                    setText(*service_, definition.field, value);
                });
            field->readOnly("cTransactionFields_MaximumLength",
                            [&definition] { return Variant(definition.maximumLength); });
            return ObjectRef(field);
        });
    });
}

void SimulatedCharge::addResponse() {
    const auto readOnly = [this](const char* name, auto value) {
        object_->readOnly(name, [this, name = std::string(name), value] {
            return answer(name, [&] { return Variant(value(service_->answer())); });
        });
    };
    using Answer = charge::ProcessorAnswer;
    readOnly("ResponseCode", [](const Answer& given) { return given.responseCode; });
    readOnly("ResponseReasonCode", [](const Answer& given) { return given.reasonCode; });
    readOnly("ResponseSubCode", [](const Answer& given) { return given.subCode; });
    readOnly("ResponseReasonText", [](const Answer& given) { return given.reasonText; });
    readOnly("ApprovalCode", [](const Answer& given) { return given.approvalCode; });
    readOnly("TransactionID", [](const Answer& given) { return given.transactionId; });
}

void SimulatedCharge::addOperations() {
    addOperation("AuthorizeAndCapture", Operation::Charge);
    addOperation("CaptureVoiceAuth", Operation::VoiceCapture);
    addOperation("Credit", Operation::Refund);
    addOperation("Void", Operation::Void);
}

void SimulatedCharge::addOperation(const std::string& name, Operation operation) {
    object_->method(name, [this, name, operation](std::vector<Argument>& arguments) -> Variant {
        raised = true;
        const Variant result =
            run(name, operation, arguments.empty() ? std::string() : asText(arguments[0].value));
        asBool(result); // raises for what the program cannot take for an answer either
        raised = false;
        return result;
    });
}

Variant SimulatedCharge::run(const std::string& name, Operation operation,
                             const std::string& argument) {
    if (ground_.dark) {
        throw gone();
    }
    bool approved = false;
    try {
        approved = service_->run(operation, argument);
    } catch (const com::ComponentError& error) {
        throw asError(error);
    } catch (const PowerCut&) {
        endedInCall = true;
        throw gone();
    }
    if (!ground_.dark) {
        onAnswer();
    }
    endedInCall = ground_.dark;
    return answer(name, [&] { return Variant(approved); });
}

void SimulatedCharge::addHousekeeping() {
    object_->method("ClearFields", [this](std::vector<Argument>&) -> Variant {
        return answer("ClearFields", [&]() -> Variant {
            service_->clearFields();
            return {};
        });
    });
    object_->method("Free", [this](std::vector<Argument>&) -> Variant {
        service_->clearFields();
        return {};
    });
    object_->method("LogLoggedInUser", [this](std::vector<Argument>& arguments) -> Variant {
        service_->signIn(asText(arguments.at(0).value));
        return {};
    });
    object_->readOnly("TestMode", [this] {
        return answer("TestMode", [&] { return Variant(ground_.settings.settings.testMode); });
    });
    object_->readOnly("LogFilePath", [] { return Variant(std::string("logs")); });
    object_->readOnly("LogFileName", [] { return Variant(std::string("ZENDACARD.LOG")); });
    object_->readOnly("Data_Path", [] { return Variant(std::string("data")); });
}

} // namespace tollvane::simulation
