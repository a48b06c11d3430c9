#include "components/logviewer/win/LogReader.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace tollvane::logviewer {

namespace {

constexpr std::size_t pieceBytes = 1 << 18;
constexpr auto pause = std::chrono::seconds(1);

} // namespace

LogReader::LogReader(std::filesystem::path path)
    : path_(std::move(path)), thread_([this] { run(); }) {}

LogReader::~LogReader() {
    {
        const std::lock_guard lock(mutex_);
        stop_ = true;
    }
    wake_.notify_all();
    thread_.join();
}

void LogReader::restart() {
    {
        const std::lock_guard lock(mutex_);
        restart_ = true;
    }
    wake_.notify_all();
}

std::string LogReader::text(const LogRow& row, std::size_t most) const {
    const Looker lock(*this);
    return file_.read(row.offset, std::min<std::size_t>(row.length, most));
}

void LogReader::run() {
    do {
        readOn();
    } while (waitForMore());
}

bool LogReader::waitForMore() {
    std::unique_lock lock(mutex_);
    wake_.wait_for(lock, pause, [this] { return stop_ || restart_; });
    return !stop_;
}

// A file that became shorter than what was read of it is another one.
bool LogReader::openOrReset() {
    LogFile current(path_);
    const std::lock_guard lock(mutex_);
    const bool replaced =
        progress_.there && (restart_ || !current.isOpen() || current.size() < index_.taken());
    restart_ = false;
    if (replaced) {
        index_ = LogIndex();
        finishedAt_ = 0;
        progress_.complete = false;
        ++progress_.generation;
    }
    if (replaced || progress_.there != current.isOpen())
        ++progress_.version;
    progress_.there = current.isOpen();
    file_ = std::move(current);
    return file_.isOpen();
}

void LogReader::readOn() {
    if (!openOrReset()) {
        if (!progress_.complete)
            finish({});
        return;
    }
    if (progress_.complete && file_.size() == finishedAt_)
        return;
    while (readPiece()) {
    }
}

void LogReader::letLookersGoFirst() const {
    while (lookers_ > 0)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

// Answers whether there may be more.
bool LogReader::readPiece() {
    const std::uint64_t size = file_.size();
    const std::string bytes = file_.read(index_.taken(), pieceBytes);
    letLookersGoFirst();
    {
        const std::lock_guard lock(mutex_);
        if (stop_ || restart_)
            return false;
        if (bytes.size() == pieceBytes) {
            if (index_.feed(bytes) == 0)
                index_.feedDamaged(bytes);
            ++progress_.version;
            progress_.percent =
                size == 0
                    ? 100
                    : static_cast<int>(std::min<std::uint64_t>(100, index_.taken() * 100 / size));
            return true;
        }
    }
    finishedAt_ = size;
    finish(bytes);
    return false;
}

void LogReader::finish(const std::string& tail) {
    const std::lock_guard lock(mutex_);
    const std::size_t whole = index_.feed(tail);
    index_.finish(std::string_view(tail).substr(whole));
    progress_.complete = true;
    progress_.percent = 100;
    ++progress_.version;
}

} // namespace tollvane::logviewer
