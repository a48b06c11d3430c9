#pragma once

#include "platform/Automation.h"

#include <string>
#include <utility>

namespace tollvane {

/// A typed view of the host data server. Holds a counted reference. Every call raises what the
/// server reports.
class HostDataServer {
public:
    explicit HostDataServer(ObjectRef server) : server_(std::move(server)) {}

    /// The shop's place, as the business application names it.
    std::string Location() const;
    /// Shows the server's own settings; returns when they have been closed.
    void ConfigureSettings();

private:
    ObjectRef server_;
};

} // namespace tollvane
