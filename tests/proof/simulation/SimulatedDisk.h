#pragma once

#include "components/charge/core/FileStore.h"

#include <functional>
#include <map>
#include <string>

namespace tollvane::simulation {

/// The power went off in the middle of a call: the process is gone.
struct PowerCut {};

/// The files of the charge component: they outlive the processes that write them.
class SimulatedDisk final : public charge::FileStore {
public:
    enum class Trouble {
        full,           ///< from the chosen change on, nothing can be written
        failedFlush,    ///< all bytes are there, the call raises
        shortWrite,     ///< half of the bytes are there, the call raises
        failedTruncate, ///< the next shortening raises
        unreadable,     ///< the chosen read raises
        inUse,          ///< another process does not let go of the folder
        cutBefore,
        cutMidway,
        cutAfter,
    };

    using FileStore::read;
    std::string read(const charge::FilePath& file, std::uint64_t from) override;
    std::uint64_t size(const charge::FilePath& file) override;
    void append(const charge::FilePath& file, std::string_view bytes) override;
    void truncate(const charge::FilePath& file, std::uint64_t size) override;
    std::unique_ptr<Lock> lock(const charge::FilePath& folder) override;

    /// The n-th change (or read) from now on meets the trouble. There may be several.
    void plan(Trouble trouble, int nth) { plans_[trouble] = {nth}; }
    void heal() { plans_.clear(); }
    /// The trouble came up.
    bool struck(Trouble trouble) const;

    /// Runs when the power goes off; from then on every call ends the process.
    std::function<void()> onPowerCut;
    /// Works with power and without troubles, as on the disk of a processor elsewhere.
    void undisturbed(const std::function<void()>& work);
    void setDark(bool dark) { dark_ = dark; }

    /// A file as it is, whatever is planned.
    const std::string& contents(const std::string& file) { return files_[file]; }

private:
    struct Plan {
        int left = 0;
        bool struck = false;
    };

    bool strikes(Trouble trouble);
    [[noreturn]] void cutPower();
    void requirePower() const;

    std::map<std::string, std::string> files_;
    std::map<Trouble, Plan> plans_;
    bool dark_ = false;
    bool locked_ = false;
};

} // namespace tollvane::simulation
