#pragma once

#include "platform/Automation.h"
#include "platform/Error.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tollvane::test {

class FaultPlan;

enum class Access { call, get, put, putReference };

/// A call that reached a component's object. Card data is kept as SecretText and prints masked.
struct AutomationCall {
    std::string object;
    Access access = Access::call;
    std::string member;
    std::vector<Argument> arguments;

    /// "charge.Credit("T-1")", "charge.Amount = 12.5", "charge.Amount"; "&" marks a reference.
    std::string text() const;
};

/// A value as call records show it: texts quoted, money as a plain number, card data masked.
std::string variantText(const Variant& value);

/// What all objects of one test note in one place, in order.
class AutomationRecord {
public:
    explicit AutomationRecord(FaultPlan& faults) : faults_(&faults) {}

    /// For the fakes: notes a call, and raises what was planned for it.
    void note(AutomationCall call);

    const std::vector<AutomationCall>& calls() const { return calls_; }
    /// The texts of the calls, or of those whose text starts with `prefix`.
    std::vector<std::string> texts(std::string_view prefix = {}) const;
    void forget() { calls_.clear(); }

    /// The next call of that member ("object.member", however it is used) raises the error.
    void failNext(const std::string& objectAndMember, const Error& error);

private:
    FaultPlan* faults_;
    std::vector<AutomationCall> calls_;
    std::map<std::string, std::vector<Error>> failures_;
};

/// A component's object made of plain functions. Member names know no case; a member that was not
/// given, or is used in another way than it was given for, raises 438.
class FakeObject : public AutomationObject {
public:
    using Method = std::function<Variant(std::vector<Argument>& arguments)>;
    using Getter = std::function<Variant()>;
    using Setter = std::function<void(Variant value)>;

    using AutomationObject::call;
    using AutomationObject::get;

    FakeObject(std::string name, AutomationRecord& record)
        : name_(std::move(name)), record_(&record) {}

    void method(std::string_view member, Method body);
    /// A property that stores what it is given.
    void property(std::string_view member, Variant value);
    void property(std::string_view member, Getter getter, Setter setter);
    void readOnly(std::string_view member, Getter getter);
    /// A property with arguments, for "Item" and its like; also answers as an operation.
    void indexed(std::string_view member, Method body);

    /// A stored property, without noting a call.
    Variant value(std::string_view member) const;
    void setValue(std::string_view member, Variant value);

    Variant call(std::string_view member, std::vector<Argument> arguments) override;
    Variant get(std::string_view member, std::vector<Argument> arguments) override;
    void put(std::string_view member, Variant value) override;
    void putReference(std::string_view member, ObjectRef object) override;

    const std::string& name() const { return name_; }

private:
    struct Member {
        Method call;
        Method indexed;
        Getter get;
        Setter put;
        std::optional<Variant> stored;
    };

    static std::string key(std::string_view member);
    Member& find(std::string_view member);
    void assign(std::string_view member, Variant value);

    std::string name_;
    AutomationRecord* record_;
    std::map<std::string, Member> members_;
};

/// Creation of components that the test registered.
class FakeAutomation : public Automation {
public:
    using Factory = std::function<ObjectRef()>;

    struct Creation {
        std::string progId; ///< or the class id
        std::string computer;
        std::string interfaceId;
        bool operator==(const Creation&) const = default;
    };

    using Automation::create;

    explicit FakeAutomation(FaultPlan& faults) : faults_(faults) {}

    ObjectRef create(const std::string& progId, const std::string& computer) override;
    ObjectRef createClass(const std::string& classId, const std::string& interfaceId) override;

    /// Every creation hands out what the factory makes.
    void registerProgId(const std::string& progId, Factory factory);
    /// Raises "no such interface" (hex 80004002) when asked for another interface.
    void registerClass(const std::string& classId, const std::string& interfaceId, Factory factory);
    /// From now on the class cannot be created (429).
    void unregister(const std::string& id) { classes_.erase(id); }
    /// The next creation of the class raises this error instead.
    void failNext(const std::string& id, const Error& error) { failures_[id] = error; }

    std::vector<Creation> created; ///< every attempt

private:
    struct Class {
        std::string interfaceId;
        Factory factory;
    };

    Class& find(const std::string& id);

    FaultPlan& faults_;
    std::map<std::string, Class> classes_;
    std::map<std::string, std::optional<Error>> failures_;
};

} // namespace tollvane::test
