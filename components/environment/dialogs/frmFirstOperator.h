// The first start: the operator who may do everything.
#pragma once

#include "components/environment/EnvironmentState.h"
#include "components/environment/dialogs/OperatorEntry.h"

namespace tollvane::environment {

// Creates the first operator and signs it in.
class frmFirstOperator final : public OperatorEntry {
public:
    explicit frmFirstOperator(EnvironmentState& state);

private:
    void onShow() override;
    void store(const NewOperator& data, const Password& password) override;

    EnvironmentState& state_;
};

} // namespace tollvane::environment
