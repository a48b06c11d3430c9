// The component's settings: where the transaction log and the data are kept.
#pragma once

#include "components/charge/core/Settings.h"
#include "components/common/ModalDialog.h"

namespace tollvane::charge {

class SettingsDialog final : public com::ModalDialog {
public:
    explicit SettingsDialog(Settings settings);

    // What was entered, once run() has answered true.
    const Settings& settings() const noexcept { return settings_; }

private:
    void onShow() override;
    bool onOk() override;
    void onCommand(int id, int notification) override;

    void browse(int boxId, const wchar_t* title);
    // Complains and answers false when the text is no folder that is there or can be made.
    bool acceptFolder(int boxId, FilePath& folder);

    Settings settings_;
};

} // namespace tollvane::charge
