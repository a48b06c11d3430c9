// A new password for an operator who has forgotten the old one.
#pragma once

#include "components/environment/HostDataClient.h"
#include "components/environment/dialogs/EnvironmentDialog.h"

namespace tollvane::environment {

// token: of one who may manage operators.
class frmResetPassword final : public EnvironmentDialog {
public:
    frmResetPassword(const HostDataClient& server, const std::wstring& token,
                     const OperatorRow& who);

private:
    void onShow() override;
    bool onOk() override;

    const HostDataClient& server_;
    const std::wstring& token_;
    const OperatorRow& who_;
};

} // namespace tollvane::environment
