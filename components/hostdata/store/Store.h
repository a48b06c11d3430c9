// The host data file, opened when it is first needed and used by one caller at a time.
#pragma once

#include "components/hostdata/HostDataError.h"
#include "components/hostdata/store/Database.h"

#include <memory>
#include <mutex>
#include <string>
#include <utility>

namespace tollvane::hostdata {

class Store {
public:
    // The path is UTF-8; nothing is opened yet.
    explicit Store(std::string path) : path_(std::move(path)) {}

    // Runs work(Database&) on the store. After a failure of the store the next call opens it anew.
    template <typename Work>
    auto read(Work&& work) {
        const std::lock_guard lock(mutex_);
        return guarded([&] { return work(opened()); });
    }

    // The same within a write transaction: all of the work is stored, durably, or none of it.
    template <typename Work>
    auto write(Work&& work) {
        const std::lock_guard lock(mutex_);
        return guarded([&] {
            Transaction transaction(opened());
            if constexpr (std::is_void_v<decltype(work(*database_))>) {
                work(*database_);
                transaction.commit();
            } else {
                auto result = work(*database_);
                transaction.commit();
                return result;
            }
        });
    }

    // Has the file, where there is one, opened and looked at before it is needed. Raises what the
    // first work would.
    void open();

    // Waits for the work that is being done; the next one opens the file again.
    void close() {
        const std::lock_guard lock(mutex_);
        database_.reset();
    }

    [[nodiscard]] const std::string& path() const noexcept { return path_; }

private:
    template <typename Work>
    auto guarded(Work&& work) {
        try {
            return work();
        } catch (const HostDataError& error) {
            if (error.failure() <= Failure::storeOther)
                database_.reset();
            throw;
        }
    }
    Database& opened();

    std::string path_;
    std::mutex mutex_;
    std::unique_ptr<Database> database_;
};

} // namespace tollvane::hostdata
