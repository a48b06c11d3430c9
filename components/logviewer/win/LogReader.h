// Reads the log on a thread of its own and goes on following it.
#pragma once

#include "components/logviewer/core/LogIndex.h"
#include "components/logviewer/win/LogFile.h"

#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <mutex>
#include <string>
#include <thread>

namespace tollvane::logviewer {

// How far the reading has come.
struct Progress {
    bool there = false;    // the file could be opened
    bool complete = false; // everything that is in the file now has been read
    int percent = 0;
    std::uint32_t generation = 0; // counts up when the file was replaced: all rows are new
    std::uint32_t version = 0;    // counts up with every change
};

class LogReader {
public:
    explicit LogReader(std::filesystem::path path);
    LogReader(const LogReader&) = delete;
    LogReader& operator=(const LogReader&) = delete;
    ~LogReader();

    // Looks at the file again at once, from its beginning.
    void restart();

    // work(const LogIndex&, const Progress&) runs while the reader holds still: it must be short.
    template <class Work>
    auto look(Work&& work) const {
        const std::lock_guard lock(mutex_);
        return work(index_, progress_);
    }
    // The text of one row, at most so many bytes.
    [[nodiscard]] std::string text(const LogRow& row, std::size_t most) const;
    [[nodiscard]] const std::filesystem::path& path() const noexcept { return path_; }

private:
    void run();
    // One look at the file, to its end.
    void readOn();
    bool openOrReset();
    bool readPiece();
    void finish(const std::string& tail);
    bool waitForMore();

    const std::filesystem::path path_;
    mutable std::mutex mutex_;
    std::condition_variable wake_;
    bool stop_ = false;
    bool restart_ = false;
    LogFile file_;
    LogIndex index_;
    Progress progress_;
    std::uint64_t finishedAt_ = 0; // size of the file when it was last read to its end
    std::thread thread_;
};

} // namespace tollvane::logviewer
