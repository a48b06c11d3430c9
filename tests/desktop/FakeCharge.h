#pragma once

#include "tests/desktop/FakeAutomation.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tollvane::test {

class FakeLocale;

/// What the charge component answers to an operation.
struct ChargeAnswer {
    bool approved = true;
    std::int32_t responseCode = 1;
    std::int32_t reasonCode = 1;
    std::int32_t subCode = 0;
    std::string reasonText = "This transaction has been approved.";
    std::string approvalCode = "A1B2C3";
    std::string transactionId = "7001";
};

/// A decline as a processor words it.
ChargeAnswer declined(std::int32_t responseCode, std::int32_t reasonCode, std::string reasonText);

/// An operation as it arrived, with everything that the component held at that moment.
struct ChargeOperation {
    std::string name;
    std::string argument;                      ///< approval code or transaction id
    std::map<std::string, Variant> properties; ///< by their names
    std::map<std::string, std::string> fields; ///< by their gateway names
    bool approved = false;                     ///< what the processor decided about it

    Variant property(const std::string& name) const;
    std::string text(const std::string& name) const; ///< of a text property; card data included
    std::string field(const std::string& name) const;
};

/// The charge component, scripted by the test. Outlives the objects that it hands out only as long
/// as the test's desktop lives.
class FakeCharge {
public:
    FakeCharge(AutomationRecord& record, FakeLocale& locale);

    ObjectRef object() const { return object_; }
    FakeObject& script() { return *object_; }

    /// The answers to the coming operations, in order; without one an approval.
    void answer(ChargeAnswer answer) { answers_.push_back(std::move(answer)); }
    /// What was planned and not asked for.
    void forgetAnswers() { answers_.clear(); }
    /// The next operation raises this error.
    void failOperation(const Error& error) { operationError_ = error; }
    /// Runs while an operation is under way, before it answers.
    std::function<void(const ChargeOperation& operation)> duringOperation;

    const std::vector<ChargeOperation>& operations() const { return operations_; }
    Variant property(const std::string& name) const { return object_->value(name); }
    std::string field(const std::string& name) const;

    /// Longest value of a gateway field, in characters.
    void setMaximumLength(const std::string& field, std::int32_t length);

    bool testMode = false;
    std::string logFilePath = "C:\\ProgramData\\Tollvane";
    std::string logFileName = "Transactions.log";
    std::string dataPath = "c:\\zenda\\data";
    int cleared = 0;
    int freed = 0;
    int gatewayConfigured = 0;
    int settingsConfigured = 0;
    std::vector<std::string> loggedUsers;
    std::function<void()> onConfigureGateway;

private:
    struct Field {
        std::int32_t maximumLength = 0;
        std::string value;
        ObjectRef object;
    };

    void addFields();
    void addTransactionProperties();
    void addResponse();
    void addOperations();
    void addHousekeeping();
    void clearFields();
    void operation(const std::string& name, bool takesArgument);
    Variant run(const std::string& name, const std::vector<Argument>& arguments);
    void setMoney(const std::string& property, const Variant& value);

    AutomationRecord& record_;
    FakeLocale& locale_;
    std::shared_ptr<FakeObject> object_;
    std::map<std::string, Field> fields_;
    std::vector<ChargeAnswer> answers_;
    std::optional<Error> operationError_;
    std::vector<ChargeOperation> operations_;
    ChargeAnswer response_;
};

/// The library's card-number check: accepts what passes the check digit, unless the test says
/// otherwise.
class FakeChecker {
public:
    explicit FakeChecker(AutomationRecord& record);

    ObjectRef object() const { return object_; }

    std::function<bool(std::string_view number)> accepts;
    std::vector<SecretText> checked;
    std::optional<Error> error;

    static constexpr const char* classId = "{B0FF1329-8BB0-4C7B-BE63-416A3AEAA8D3}";
    static constexpr const char* interfaceId = "{6FDC8BBD-2006-4705-A971-5484FF971CBD}";

private:
    std::shared_ptr<FakeObject> object_;
};

} // namespace tollvane::test
