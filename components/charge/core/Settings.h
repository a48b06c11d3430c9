// What a shop can set about the component. Read anew for every operation, never cached.
#pragma once

#include "components/charge/core/FilePath.h"

#include <string>
#include <string_view>

namespace tollvane::charge {

inline constexpr int defaultDuplicateWindowSeconds = 120;
inline constexpr int longestDuplicateWindowSeconds = 86'400;
inline constexpr const char* defaultLogFileName = "ZENDACARD.LOG";

struct Settings {
    bool testMode = true;
    std::string merchantId; // the shop's account at the processor, for the log
    int duplicateWindowSeconds = defaultDuplicateWindowSeconds; // 0: duplicates are not refused
    FilePath dataFolder;                                        // journal and ledgers
    FilePath logFolder;
    FilePath logFileName = defaultLogFileName;
};

// Whether a text can be the name of a file in any folder: no path, none of the characters that file
// names exclude, not empty, no name of a device.
bool isPlainFileName(std::string_view name);

class SettingsSource {
public:
    virtual ~SettingsSource() = default;
    virtual Settings read() = 0;
};

} // namespace tollvane::charge
