#include "app/Components.h"

#include "app/Login.h"
#include "platform/Error.h"

#include <string>
#include <string_view>

namespace tollvane {

namespace {

constexpr long kObjectNotSet = 91;

/// Runs one step of the start; its error gets the step's sentence in front of the description.
template <class Step>
decltype(auto) explained(std::string_view sentence, Step&& step) {
    try {
        return step();
    } catch (...) {
        throw currentError().prefixedBy(sentence);
    }
}

template <class View>
View& present(std::optional<View>& view) {
    if (!view) {
        throw Error(kObjectNotSet, "Tollvane", "Object variable or With block variable not set");
    }
    return *view;
}

} // namespace

void Components::CreateComponents() {
    explained("Error creating Environment object. ", [this] {
        environment_.emplace(desktop_.automation.create(std::string(kEnvironmentProgId)));
    });
    explained("Error setting Environment command line object. ", [this] {
        const std::string commandLine = desktop_.program.commandLine();
        if (!commandLine.empty()) {
            environment_->INIT(commandLine);
        }
    });
    const std::string operatorName = explained("Authorization error. ", [this] {
        Authorized(desktop_.automation, *environment_); // raises for whom it refuses
        return environment_->currentUserName();
    });
    explained("Error creating ZendaCard object. ", [this] {
        charge_.emplace(desktop_.automation.create(std::string(kChargeComponentProgId)),
                        desktop_.locale);
    });
    charge_->LogLoggedInUser(operatorName);
}

void Components::ReleaseComponents() {
    struct Dropping {
        Components& components;
        ~Dropping() {
            components.charge_.reset();
            components.environment_.reset();
        }
    } const dropping{*this};
    if (charge_) {
        charge_->Free();
    }
}

Environment& Components::environment() {
    return present(environment_);
}
ChargeComponent& Components::charge() {
    return present(charge_);
}

} // namespace tollvane
