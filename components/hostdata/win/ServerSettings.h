// Where the host data server keeps its file, and what its place is called.
#pragma once

#include <string>

namespace tollvane::hostdata {

// Read once, at the start of the server. All text is UTF-8.
struct ServerSettings {
    // Full path of the store. Value "Store"; by default hostdata.db in the machine's folder for
    // application data, under Norrow Programs\Host Data.
    std::string storePath;
    // Name of the shop. Value "Location"; by default the computer's name.
    std::string location;
};

// From HKEY_LOCAL_MACHINE, "Software\Norrow Programs\Host Data". Missing or empty values give the
// defaults.
[[nodiscard]] ServerSettings readServerSettings();

// The folder part of a path, without the last backslash.
[[nodiscard]] std::string folderOf(const std::string& path);

} // namespace tollvane::hostdata
