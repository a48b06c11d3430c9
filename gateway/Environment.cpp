#include "gateway/Environment.h"

#include "platform/Text.h"

#include <utility>

namespace tollvane {

void Environment::INIT(const std::string& commandLine) {
    component_->call("INIT", {{commandLine}});
}

std::string Environment::DCServer() const {
    return asText(component_->get("DCServer"));
}

void Environment::setDCObject(ObjectRef hostDataServer) {
    asObject(component_->get("Options"))->putReference("DCObject", std::move(hostDataServer));
}

ObjectRef Environment::DCObject() const {
    return asObject(asObject(component_->get("Options"))->get("DCObject"));
}

ObjectRef Environment::SafeCreateUIObj(std::int32_t kind) {
    return asObject(component_->call("SafeCreateUIObj", {{kind}}));
}

bool Environment::HasSecurity(std::int32_t privilege) {
    return asBool(component_->call("HasSecurity", {{privilege, true}}));
}

std::string Environment::currentUserName() const {
    const ObjectRef item = asObject(asObject(component_->get("CurrentUser"))->get("Item"));
    const std::string first = trimmed(asText(item->get("First")));
    return first + " " + asText(item->get("Last"));
}

std::string Environment::Data_Path() const {
    return asText(component_->get("Data_Path"));
}
std::string Environment::Location() const {
    return asText(component_->get("Location"));
}

} // namespace tollvane
