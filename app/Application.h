#pragma once

#include "app/Components.h"
#include "entry/ChargeInfo.h"
#include "platform/Desktop.h"

#include <memory>

namespace tollvane {

/// The start-up module: one object per run of the program.
class Application {
public:
    explicit Application(const Desktop& desktop);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    /// The entry point. Refuses a second instance, creates the components, asks for missing company
    /// information and shows the transaction form; then the program lives on its events until that
    /// form closes. A failure is shown and leaves no form. Never throws.
    void Main();

    /// The transaction form, or null when the start did not get that far.
    ChargeInfo* form() { return form_.get(); }

private:
    void start();
    void reportFailure(const Error& error) noexcept;
    void offerCompanyInformation();

    Desktop desktop_;
    Components components_;
    std::unique_ptr<ChargeInfo> form_;
};

} // namespace tollvane
