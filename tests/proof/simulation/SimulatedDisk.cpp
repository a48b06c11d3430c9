#include "tests/proof/simulation/SimulatedDisk.h"

#include <utility>

namespace tollvane::simulation {

namespace {

class HeldLock final : public charge::FileStore::Lock {
public:
    explicit HeldLock(bool& locked) : locked_(locked) { locked_ = true; }
    ~HeldLock() override { locked_ = false; }
    HeldLock(const HeldLock&) = delete;
    HeldLock& operator=(const HeldLock&) = delete;

private:
    bool& locked_;
};

} // namespace

bool SimulatedDisk::struck(Trouble trouble) const {
    const auto found = plans_.find(trouble);
    return found != plans_.end() && found->second.struck;
}

bool SimulatedDisk::strikes(Trouble trouble) {
    const auto found = plans_.find(trouble);
    const bool now = found != plans_.end() && found->second.left > 0 && --found->second.left == 0;
    if (now) {
        found->second.struck = true;
    }
    return now;
}

void SimulatedDisk::requirePower() const {
    if (dark_) {
        throw PowerCut();
    }
}

void SimulatedDisk::cutPower() {
    dark_ = true;
    onPowerCut();
    throw PowerCut();
}

void SimulatedDisk::undisturbed(const std::function<void()>& work) {
    const bool dark = std::exchange(dark_, false);
    auto plans = std::exchange(plans_, {});
    work();
    dark_ = dark;
    plans_ = std::move(plans);
}

std::string SimulatedDisk::read(const charge::FilePath& file, std::uint64_t from) {
    requirePower();
    if (strikes(Trouble::unreadable)) {
        throw charge::FileFailure("The disk cannot be read.");
    }
    const std::string& content = files_[file.plainText()];
    return from >= content.size() ? std::string() : content.substr(from);
}

std::uint64_t SimulatedDisk::size(const charge::FilePath& file) {
    requirePower();
    return files_[file.plainText()].size();
}

void SimulatedDisk::append(const charge::FilePath& file, std::string_view bytes) {
    requirePower();
    std::string& content = files_[file.plainText()];
    if (struck(Trouble::full) || strikes(Trouble::full)) {
        throw charge::FileFailure("There is not enough space on the disk.");
    }
    if (strikes(Trouble::failedFlush)) {
        content += bytes;
        throw charge::FileFailure("The data cannot be flushed.");
    }
    if (strikes(Trouble::shortWrite)) {
        content += bytes.substr(0, bytes.size() / 2);
        throw charge::FileFailure("There is not enough space on the disk.");
    }
    if (strikes(Trouble::cutBefore)) {
        cutPower();
    }
    if (strikes(Trouble::cutMidway)) {
        content += bytes.substr(0, bytes.size() / 2);
        cutPower();
    }
    content += bytes;
    if (strikes(Trouble::cutAfter)) {
        cutPower();
    }
}

void SimulatedDisk::truncate(const charge::FilePath& file, std::uint64_t size) {
    requirePower();
    if (strikes(Trouble::failedTruncate)) {
        throw charge::FileFailure("The file cannot be shortened.");
    }
    if (strikes(Trouble::cutBefore) || strikes(Trouble::cutMidway)) {
        cutPower();
    }
    files_[file.plainText()].resize(size);
    if (strikes(Trouble::cutAfter)) {
        cutPower();
    }
}

std::unique_ptr<charge::FileStore::Lock> SimulatedDisk::lock(const charge::FilePath&) {
    requirePower();
    if (locked_ || strikes(Trouble::inUse)) {
        throw charge::FileFailure("Another process uses the files.");
    }
    return std::make_unique<HeldLock>(locked_);
}

} // namespace tollvane::simulation
