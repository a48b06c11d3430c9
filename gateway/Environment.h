#pragma once

#include "platform/Automation.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tollvane {

inline constexpr std::string_view kEnvironmentProgId = "prjHabitat.clsHabitatI";
inline constexpr std::string_view kHostDataProgId = "dcZenda32.dcclsZenda32";

/// A typed view of the environment component: command line, signed-in operator, host data server.
/// Holds a counted reference. Every call raises what the component reports.
class Environment {
public:
    explicit Environment(ObjectRef component) : component_(std::move(component)) {}

    void INIT(const std::string& commandLine);
    /// Computer on which the host data server runs; empty is this one.
    std::string DCServer() const;
    /// Hands the host data server over; the environment keeps it for the rest of the run.
    void setDCObject(ObjectRef hostDataServer);
    ObjectRef DCObject() const;
    ObjectRef SafeCreateUIObj(std::int32_t kind);
    bool HasSecurity(std::int32_t privilege);
    /// The operator's first name (trimmed), a blank and the last name.
    std::string currentUserName() const;
    std::string Data_Path() const;
    std::string Location() const;

private:
    ObjectRef component_;
};

} // namespace tollvane
