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
        none,
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

    /// The n-th change (or read) from now on meets the trouble.
    void plan(Trouble trouble, int nth);
    void heal() { plan(Trouble::none, 0); }
    /// The trouble came up.
    bool struck() const { return struck_; }

    /// Runs when the power goes off; from then on every call ends the process.
    std::function<void()> onPowerCut;
    void setDark(bool dark) { dark_ = dark; }

    /// A file as it is, whatever is planned.
    const std::string& contents(const std::string& file) { return files_[file]; }

private:
    bool strikes();
    [[noreturn]] void cutPower();
    void requirePower() const;

    std::map<std::string, std::string> files_;
    Trouble trouble_ = Trouble::none;
    int left_ = 0;
    bool struck_ = false;
    bool dark_ = false;
    bool locked_ = false;
};

} // namespace tollvane::simulation
