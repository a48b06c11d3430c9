// The part that the two dialogs for a new operator have in common: names and a password.
#pragma once

#include "components/environment/HostDataClient.h"
#include "components/environment/dialogs/EnvironmentDialog.h"

namespace tollvane::environment {

class OperatorEntry : public EnvironmentDialog {
public:
    enum Id {
        lblIntroduction = 100,
        txtFirstName,
        txtLastName,
        txtUserName,
        txtPassword,
        txtPasswordAgain,
        lblPasswordRule,
        chkAcceptPayments
    };

protected:
    using EnvironmentDialog::EnvironmentDialog;

    bool onOk() override;
    // Stores the operator; raises ComponentError.
    virtual void store(const NewOperator& data, const Password& password) = 0;

private:
    bool missing(int id, const char* message);
};

} // namespace tollvane::environment
