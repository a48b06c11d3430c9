#pragma once

#include "platform/Automation.h"
#include "tests/proof/faults/Sabotage.h"

#include <functional>
#include <string>

namespace tollvane::test {

inline constexpr long kServerGone = 462;
inline constexpr const char* kServerGoneText =
    "The remote server machine does not exist or is unavailable";

/// An object of an unknown component: it has none of the members that it is asked for.
class StrangeObject : public AutomationObject {
public:
    using AutomationObject::call;
    using AutomationObject::get;

    Variant call(std::string_view member, std::vector<Argument> arguments) override;
    Variant get(std::string_view member, std::vector<Argument> arguments) override;
    void put(std::string_view member, Variant value) override;
    void putReference(std::string_view member, ObjectRef object) override;
};

/// A component's object as it crosses to the program: counted as long as it is held, and failing
/// when it is its turn.
class FaultyObject : public AutomationObject {
public:
    using AutomationObject::call;
    using AutomationObject::get;

    FaultyObject(ObjectRef inner, Sabotage& sabotage);
    FaultyObject(const FaultyObject&) = delete;
    FaultyObject& operator=(const FaultyObject&) = delete;
    ~FaultyObject() override;

    Variant call(std::string_view member, std::vector<Argument> arguments) override;
    Variant get(std::string_view member, std::vector<Argument> arguments) override;
    void put(std::string_view member, Variant value) override;
    void putReference(std::string_view member, ObjectRef object) override;

    const ObjectRef& inner() const { return inner_; }

private:
    Variant perform(const std::string& call, const std::function<Variant()>& work);
    Variant wrapped(Variant answer);

    ObjectRef inner_;
    Sabotage& sabotage_;
    std::string name_;
    std::string process_;
};

/// Components whose objects fail by plan. A component that is created anew gets a living process.
class FaultyAutomation : public Automation {
public:
    FaultyAutomation(Automation& inner, Sabotage& sabotage) : inner_(inner), sabotage_(sabotage) {}

    ObjectRef create(const std::string& progId, const std::string& computer) override;
    ObjectRef createClass(const std::string& classId, const std::string& interfaceId) override;

private:
    ObjectRef created(const std::string& id, const std::function<ObjectRef()>& create);

    Automation& inner_;
    Sabotage& sabotage_;
};

} // namespace tollvane::test
