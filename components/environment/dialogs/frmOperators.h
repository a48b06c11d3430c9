// Who may sign in, and what they may do.
#pragma once

#include "components/environment/HostDataClient.h"
#include "components/environment/dialogs/EnvironmentDialog.h"

#include <vector>

namespace tollvane::environment {

// Each change is stored at once. token: of one who may manage operators.
class frmOperators final : public EnvironmentDialog {
public:
    frmOperators(const HostDataClient& server, const std::wstring& token);

private:
    void onShow() override;
    void onCommand(int id, int notification) override;

    // Reads the operators anew and selects the one with the number, or the first.
    void refresh(LONG selectedId);
    void showSelected();
    [[nodiscard]] const OperatorRow* selected() const;
    // Stores what a check box says; a refusal is shown and the box shows the truth again.
    void storeCheckBox(int id);
    void add();
    void resetPassword();

    const HostDataClient& server_;
    const std::wstring& token_;
    std::vector<OperatorRow> operators_;
};

} // namespace tollvane::environment
