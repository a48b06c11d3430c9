// Reads the log on a thread of its own and goes on following it.
#pragma once

#include "components/logviewer/core/LogIndex.h"
#include "components/logviewer/win/LogFile.h"

#include <atomic>
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
        const Looker lock(*this);
        return work(index_, progress_);
    }
    // The text of one row, at most so many bytes.
    [[nodiscard]] std::string text(const LogRow& row, std::size_t most) const;
    [[nodiscard]] const std::filesystem::path& path() const noexcept { return path_; }

private:
    // Holds the reader still. The reader lets those who want to look go first: it would take its
    // lock again before they wake up.
    class Looker {
    public:
        explicit Looker(const LogReader& reader) : reader_(reader) {
            ++reader.lookers_;
            reader.mutex_.lock();
        }
        Looker(const Looker&) = delete;
        Looker& operator=(const Looker&) = delete;
        ~Looker() {
            reader_.mutex_.unlock();
            --reader_.lookers_;
        }

    private:
        const LogReader& reader_;
    };

    void run();
    // One look at the file, to its end.
    void readOn();
    bool openOrReset();
    bool readPiece();
    void finish(const std::string& tail);
    bool waitForMore();
    void letLookersGoFirst() const;

    const std::filesystem::path path_;
    mutable std::mutex mutex_;
    mutable std::atomic<int> lookers_{0};
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
