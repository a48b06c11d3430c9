#include "app/Application.h"

#include "platform/Error.h"
#include "settings/AppProperties.h"

namespace tollvane {

Application::Application(const Desktop& desktop) : desktop_(desktop), components_(desktop) {}

Application::~Application() = default;

void Application::Main() {
    try {
        start();
    } catch (...) {
        form_.reset();
        reportFailure(currentError());
    }
}

void Application::reportFailure(const Error& error) noexcept {
    try {
        desktop_.messageBoxes.show(
            {.text = failureText("There was an error loading the application.", error),
             .title = {}});
    } catch (...) {
        // Nothing is left that could be told to anybody.
    }
}

void Application::start() {
    if (desktop_.program.anotherInstanceRuns()) {
        desktop_.messageBoxes.show({.text = desktop_.program.productName() + " is already running.",
                                    .title = "Application Is Running"});
        return;
    }
    components_.CreateComponents();
    offerCompanyInformation();
    if (!form_) {
        form_ = std::make_unique<ChargeInfo>(desktop_, components_);
    }
    form_->show();
}

void Application::offerCompanyInformation() {
    if (!AppProperties(desktop_).CompanyName().empty()) {
        return;
    }
    const MessageAnswer answer =
        desktop_.messageBoxes.show({.text = "Your company information has not been entered.\r\n\r\n"
                                            "This information is used when printing receipts.\r\n"
                                            "Do you want to setup this program now?",
                                    .title = "Enter Company Information Now?",
                                    .icon = MessageIcon::question,
                                    .buttons = MessageButtons::yesNo});
    if (answer == MessageAnswer::yes) {
        form_ = std::make_unique<ChargeInfo>(desktop_, components_);
        form_->ShowCompanyInfo();
    }
}

} // namespace tollvane
