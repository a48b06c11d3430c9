// What a shop can set about the component. Read anew for every operation, never cached.
#pragma once

#include <filesystem>
#include <string>

namespace tollvane::charge {

inline constexpr int defaultDuplicateWindowSeconds = 120;
inline constexpr int longestDuplicateWindowSeconds = 86'400;
inline constexpr const char* defaultLogFileName = "ZENDACARD.LOG";

struct Settings {
    bool testMode = true;
    std::string merchantId; // the shop's account at the processor, for the log
    int duplicateWindowSeconds = defaultDuplicateWindowSeconds; // 0: duplicates are not refused
    std::filesystem::path dataFolder;                           // journal and ledgers
    std::filesystem::path logFolder;
    std::string logFileName = defaultLogFileName;
};

class SettingsSource {
public:
    virtual ~SettingsSource() = default;
    virtual Settings read() = 0;
};

} // namespace tollvane::charge
