// Looking after the host data file: what is in it, whether it is sound, copies of it. Each call
// opens the file for itself, so that the tills go on working.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tollvane::hostdata {

struct StoreFacts {
    bool exists = false; // without a file everything else is 0
    std::uint64_t bytes = 0;
    std::int64_t payments = 0;
    std::int64_t operators = 0;
};

struct StoreCheck {
    // Each one is a sentence of the store engine, in its order; empty for a sound file.
    std::vector<std::string> problems;

    [[nodiscard]] bool sound() const noexcept { return problems.empty(); }
};

// Paths are UTF-8. Everything raises HostDataError.

[[nodiscard]] StoreFacts storeFacts(const std::string& path);

// Reads every page, index and reference of the file. Raises storeDamaged for a file that cannot be
// read as a store at all.
[[nodiscard]] StoreCheck checkStore(const std::string& path);

// Writes a copy of the whole file, as it was at one moment, and checks the copy before it takes the
// place of a file of that name. After a failure the target is as it was before. Raises
// backupRefused when the target is the file itself.
void backUpStore(const std::string& path, const std::string& target);

} // namespace tollvane::hostdata
