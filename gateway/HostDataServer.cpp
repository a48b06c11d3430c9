#include "gateway/HostDataServer.h"

namespace tollvane {

std::string HostDataServer::Location() const {
    return asText(server_->get("Location"));
}

void HostDataServer::ConfigureSettings() {
    server_->call("ConfigureSettings");
}

} // namespace tollvane
