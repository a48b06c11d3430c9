#include "tests/desktop/FakeEnvironment.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace tollvane::test {

namespace {

constexpr std::int32_t kPayment = 17;
constexpr std::int32_t kLogin = 12;

std::int32_t wholeNumber(const std::vector<Argument>& arguments) {
    return arguments.size() == 1 ? std::get<std::int32_t>(arguments[0].value) : 0;
}

std::string textArgument(const std::vector<Argument>& arguments) {
    return arguments.size() == 1 ? std::get<std::string>(arguments[0].value) : std::string();
}

Error refuse(std::string_view source, const char* why) {
    return {errornumber::invalidProcedureCall, std::string(source), why};
}

/// A payment record that is being filled.
struct Draft {
    bool positioned = false;
    bool adding = false;
    PostedPayment payment;
};

} // namespace

Variant PostedPayment::value(const std::string& field) const {
    const auto found = fields.find(field);
    if (found == fields.end()) {
        ADD_FAILURE() << "the payment record has no " << field;
        return {};
    }
    return found->second;
}

std::string PostedPayment::text(const std::string& field) const {
    const Variant held = value(field);
    const auto* text = std::get_if<std::string>(&held);
    return text == nullptr ? variantText(held) : *text;
}

FakeHostData::FakeHostData(AutomationRecord& record)
    : record_(record), object_(std::make_shared<FakeObject>("hostdata", record)) {
    object_->method("SafeCreateObj", [this](std::vector<Argument>& arguments) -> Variant {
        kindsMade.push_back(wholeNumber(arguments));
        if (kindsMade.back() != kPayment) {
            throw refuse("hostdata", "There is no such kind of data object.");
        }
        return makePayment();
    });
    object_->readOnly("Location", [this] { return Variant(location); });
}

ObjectRef FakeHostData::makePayment() {
    auto draft = std::make_shared<Draft>();
    auto record = std::make_shared<FakeObject>("payment", record_);
    record->method("GetrecbyIDNumber", [draft](std::vector<Argument>& arguments) -> Variant {
        draft->positioned = wholeNumber(arguments) == -1;
        return {};
    });
    record->method("AddNew", [draft](std::vector<Argument>&) -> Variant {
        if (!draft->positioned) {
            throw refuse("payment", "No recordset is open.");
        }
        draft->adding = true;
        return {};
    });
    record->indexed("Item", [this, draft](std::vector<Argument>& arguments) -> Variant {
        const std::string field = textArgument(arguments);
        auto item = std::make_shared<FakeObject>("item " + field, record_);
        item->property(
            "Value", [draft, field] { return draft->payment.fields[field]; },
            [draft, field](Variant value) {
                draft->payment.fields[field] = std::move(value);
                draft->payment.order.push_back(field);
            });
        return ObjectRef(item);
    });
    record->method("Update", [this, draft](std::vector<Argument>&) -> Variant {
        if (!draft->adding) {
            throw refuse("payment", "There is no record to store.");
        }
        posted.push_back(draft->payment);
        draft->adding = false;
        return {};
    });
    return record;
}

FakeEnvironment::FakeEnvironment(AutomationRecord& record)
    : record_(record), object_(std::make_shared<FakeObject>("environment", record)) {
    object_->method("INIT", [this](std::vector<Argument>& arguments) -> Variant {
        commandLine = textArgument(arguments);
        return {};
    });
    object_->readOnly("DCServer", [this] { return Variant(dcServer); });
    object_->readOnly("Data_Path", [this] { return Variant(dataPath); });
    object_->readOnly("Location", [this] { return Variant(location); });
    auto options = std::make_shared<FakeObject>("options", record_);
    options->property(
        "DCObject", [this] { return Variant(dcObject); },
        [this](Variant value) { dcObject = std::get<ObjectRef>(std::move(value)); });
    object_->readOnly("Options", [options] { return Variant(ObjectRef(options)); });
    addLogin();
    addUser();
}

void FakeEnvironment::addLogin() {
    auto login = std::make_shared<FakeObject>("login", record_);
    login->method("Login", [this](std::vector<Argument>&) -> Variant {
        ++logins;
        return loggedIn;
    });
    object_->method("SafeCreateUIObj", [this, login](std::vector<Argument>& arguments) -> Variant {
        uiKindsMade.push_back(wholeNumber(arguments));
        if (uiKindsMade.back() != kLogin) {
            throw refuse("environment", "There is no such kind of object.");
        }
        return ObjectRef(login);
    });
    object_->method("HasSecurity", [this](std::vector<Argument>& arguments) -> Variant {
        privilegesAsked.push_back(wholeNumber(arguments));
        return privileges.count(privilegesAsked.back()) != 0;
    });
}

void FakeEnvironment::addUser() {
    auto person = std::make_shared<FakeObject>("person", record_);
    person->readOnly("First", [this] { return Variant(first); });
    person->readOnly("Last", [this] { return Variant(last); });
    auto user = std::make_shared<FakeObject>("user", record_);
    user->readOnly("Item", [person] { return Variant(ObjectRef(person)); });
    object_->readOnly("CurrentUser", [user] { return Variant(ObjectRef(user)); });
}

} // namespace tollvane::test
