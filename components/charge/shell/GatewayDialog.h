// The gateway set-up: test mode, merchant account, duplicates.
#pragma once

#include "components/charge/core/Settings.h"
#include "components/common/ModalDialog.h"

namespace tollvane::charge {

class GatewayDialog final : public com::ModalDialog {
public:
    explicit GatewayDialog(Settings settings);

    // What was entered, once run() has answered true.
    const Settings& settings() const noexcept { return settings_; }

private:
    void onShow() override;
    bool onOk() override;

    Settings settings_;
};

} // namespace tollvane::charge
