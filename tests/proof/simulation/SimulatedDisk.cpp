#include "tests/proof/simulation/SimulatedDisk.h"

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

void SimulatedDisk::plan(Trouble trouble, int nth) {
    trouble_ = trouble;
    left_ = nth;
    struck_ = false;
}

bool SimulatedDisk::strikes() {
    const bool now = left_ > 0 && --left_ == 0;
    struck_ = struck_ || now;
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

std::string SimulatedDisk::read(const charge::FilePath& file, std::uint64_t from) {
    requirePower();
    if (trouble_ == Trouble::unreadable && strikes()) {
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
    switch (trouble_) {
    case Trouble::full:
        if (struck_ || strikes()) {
            throw charge::FileFailure("There is not enough space on the disk.");
        }
        break;
    case Trouble::failedFlush:
        if (strikes()) {
            content += bytes;
            throw charge::FileFailure("The data cannot be flushed.");
        }
        break;
    case Trouble::shortWrite:
        if (strikes()) {
            content += bytes.substr(0, bytes.size() / 2);
            throw charge::FileFailure("There is not enough space on the disk.");
        }
        break;
    case Trouble::cutBefore:
    case Trouble::cutMidway:
    case Trouble::cutAfter:
        if (strikes()) {
            content += trouble_ == Trouble::cutBefore   ? std::string_view()
                       : trouble_ == Trouble::cutMidway ? bytes.substr(0, bytes.size() / 2)
                                                        : bytes;
            cutPower();
        }
        break;
    default: break;
    }
    content += bytes;
}

void SimulatedDisk::truncate(const charge::FilePath& file, std::uint64_t size) {
    requirePower();
    std::string& content = files_[file.plainText()];
    if (trouble_ == Trouble::failedTruncate && strikes()) {
        throw charge::FileFailure("The file cannot be shortened.");
    }
    const bool cut = (trouble_ == Trouble::cutBefore || trouble_ == Trouble::cutMidway ||
                      trouble_ == Trouble::cutAfter) &&
                     strikes();
    if (!cut || trouble_ == Trouble::cutAfter) {
        content.resize(size);
    }
    if (cut) {
        cutPower();
    }
}

std::unique_ptr<charge::FileStore::Lock> SimulatedDisk::lock(const charge::FilePath&) {
    requirePower();
    if (locked_ || (trouble_ == Trouble::inUse && strikes())) {
        throw charge::FileFailure("Another process uses the files.");
    }
    return std::make_unique<HeldLock>(locked_);
}

} // namespace tollvane::simulation
