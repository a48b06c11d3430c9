#pragma once

#include "tests/desktop/FakeAutomation.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tollvane::test {

/// A payment record as it was stored: its fields by name, and their names in the order in which
/// they were written.
struct PostedPayment {
    std::map<std::string, Variant> fields;
    std::vector<std::string> order;

    bool has(const std::string& field) const { return fields.count(field) != 0; }
    Variant value(const std::string& field) const;
    std::string text(const std::string& field) const; ///< of a text field
};

/// The host data server: makes payment records and keeps those that were stored.
class FakeHostData {
public:
    explicit FakeHostData(AutomationRecord& record);

    ObjectRef object() const { return object_; }
    FakeObject& script() { return *object_; }

    std::vector<PostedPayment> posted;
    /// Every kind that was asked for.
    std::vector<std::int32_t> kindsMade;
    std::string location = "Main Street";

private:
    ObjectRef makePayment();

    AutomationRecord& record_;
    std::shared_ptr<FakeObject> object_;
};

/// The environment component with its login object.
class FakeEnvironment {
public:
    explicit FakeEnvironment(AutomationRecord& record);

    ObjectRef object() const { return object_; }
    FakeObject& script() { return *object_; }

    bool loggedIn = true; ///< what Login answers
    std::set<std::int32_t> privileges{4};
    std::string dcServer;
    std::string first = "Ada";
    std::string last = "Byron";
    std::string dataPath = "c:\\zenda\\data";
    std::string location = "Main Street";

    std::optional<std::string> commandLine; ///< what INIT was called with
    int logins = 0;
    std::vector<std::int32_t> privilegesAsked;
    std::vector<std::int32_t> uiKindsMade;
    ObjectRef dcObject; ///< as handed over

private:
    void addLogin();
    void addUser();

    AutomationRecord& record_;
    std::shared_ptr<FakeObject> object_;
};

} // namespace tollvane::test
