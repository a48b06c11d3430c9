// The component's settings, machine-wide under "Software\Norrow Programs\Zendacard":
//   TestMode (number, 1 unless set), MerchantId (text), DuplicateWindow (number, seconds),
//   DataFolder, LogFolder, LogFileName (texts; empty or missing means the default).
#pragma once

#include "components/charge/core/Settings.h"

namespace tollvane::charge {

class RegistrySettings final : public SettingsSource {
public:
    // Values that make no sense read as their defaults. Raises ComponentError when the key cannot
    // be read.
    Settings read() override;

    // Each writes its dialog's values only. Raise ComponentError, described for the person at the
    // counter, when the key cannot be written.
    void writeGateway(const Settings& settings);
    void writeFolders(const Settings& settings);

    // "Norrow Programs\Zendacard" in the folder for all users' data.
    static FilePath defaultFolder();
};

} // namespace tollvane::charge
