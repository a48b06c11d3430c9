// A further operator.
#pragma once

#include "components/environment/dialogs/OperatorEntry.h"

namespace tollvane::environment {

// token: of one who may manage operators.
class frmOperator final : public OperatorEntry {
public:
    frmOperator(const HostDataClient& server, const std::wstring& token);

    // The new operator's number after the dialog was closed by OK.
    [[nodiscard]] LONG id() const noexcept { return id_; }

private:
    void onShow() override { setChecked(chkAcceptPayments, true); }
    void store(const NewOperator& data, const Password& password) override;

    const HostDataClient& server_;
    const std::wstring& token_;
    LONG id_ = 0;
};

} // namespace tollvane::environment
