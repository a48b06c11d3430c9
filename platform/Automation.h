#pragma once

#include "platform/Variant.h"

#include <string>
#include <string_view>
#include <vector>

namespace tollvane {

/// A late-bound object of a component. Every call raises what the component reported: number,
/// source and description. A member that does not exist raises 438.
class AutomationObject {
public:
    virtual ~AutomationObject() = default;

    virtual Variant call(std::string_view member, std::vector<Argument> arguments) = 0;
    virtual Variant get(std::string_view member, std::vector<Argument> arguments) = 0;
    virtual void put(std::string_view member, Variant value) = 0;
    /// Assigns an object property.
    virtual void putReference(std::string_view member, ObjectRef object) = 0;

    Variant call(std::string_view member) { return call(member, {}); }
    Variant get(std::string_view member) { return get(member, {}); }
};

/// Creation of components. Raises 429 for an unregistered class and the system's code and text for
/// other failures.
class Automation {
public:
    virtual ~Automation() = default;

    /// An empty computer name means this computer.
    virtual ObjectRef create(const std::string& progId, const std::string& computer) = 0;
    /// Created directly by class identity; `interfaceId` must be supported by the object.
    virtual ObjectRef createClass(const std::string& classId, const std::string& interfaceId) = 0;

    ObjectRef create(const std::string& progId) { return create(progId, {}); }
};

} // namespace tollvane
