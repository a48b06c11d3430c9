// Payments that were approved and not recorded, and the question whether to record them now.
#pragma once

#include "components/environment/PaymentComparison.h"
#include "components/environment/dialogs/EnvironmentDialog.h"

namespace tollvane::environment {

class frmMissingPayments final : public EnvironmentDialog {
public:
    frmMissingPayments(const EnvironmentState& state, std::vector<MissingPayment> missing);

private:
    void onShow() override;
    // Records all of them; stays, with those that are left, when one cannot be recorded.
    bool onOk() override;
    void showList();

    const EnvironmentState& state_;
    std::vector<MissingPayment> missing_;
};

} // namespace tollvane::environment
