#pragma once

#include "gateway/ChargeComponent.h"
#include "gateway/Environment.h"
#include "platform/Desktop.h"

#include <optional>

namespace tollvane {

/// The process-wide components. Owned by the start-up module; everybody else borrows them.
class Components {
public:
    explicit Components(const Desktop& desktop) : desktop_(desktop) {}

    /// Creates the environment component, has the operator authorised and creates the charge
    /// component. Raises the error of the step that failed, with the step's sentence in front of
    /// its description.
    void CreateComponents();

    /// Frees and drops the charge component, then drops the environment component; both are
    /// dropped even when the charge component fails to free itself, whose error is then raised.
    void ReleaseComponents();

    /// Raises 91 when there is no such component (any more).
    Environment& environment();
    ChargeComponent& charge();
    bool hasCharge() const { return charge_.has_value(); }

    /// When set, the main window's position is not saved. Nothing in the program sets it.
    bool skipPosition = false;

private:
    Desktop desktop_;
    std::optional<Environment> environment_;
    std::optional<ChargeComponent> charge_;
};

} // namespace tollvane
