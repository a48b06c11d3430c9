// A layer between the store engine and the files that knows what has reached the disk.
#pragma once

#include <sqlite3.h>

#include <map>
#include <memory>

namespace tollvane::hostdata {

// While it lives, every file that the engine opens is watched.
class SyncWatch {
public:
    SyncWatch();
    SyncWatch(const SyncWatch&) = delete;
    SyncWatch& operator=(const SyncWatch&) = delete;
    ~SyncWatch();

    // Writes to the main file that no sync has followed.
    [[nodiscard]] int unsynced() const { return unsynced_; }
    [[nodiscard]] int syncs() const { return syncs_; }
    // Every sync from now on fails, as on a broken disk.
    void failSyncs(bool fail) { failing_ = fail; }

private:
    static int open(sqlite3_vfs* vfs, sqlite3_filename name, sqlite3_file* file, int flags,
                    int* outFlags);
    static int write(sqlite3_file* file, const void* data, int count, sqlite3_int64 at);
    static int sync(sqlite3_file* file, int flags);

    sqlite3_vfs* real_;
    sqlite3_vfs vfs_;
    int unsynced_ = 0;
    int syncs_ = 0;
    bool failing_ = false;
    // The engine's own method tables, with write and sync replaced.
    std::map<const sqlite3_io_methods*, std::unique_ptr<sqlite3_io_methods>> replaced_;
    std::map<const sqlite3_io_methods*, const sqlite3_io_methods*> originals_;
    std::map<sqlite3_file*, bool> mainFiles_;
};

} // namespace tollvane::hostdata
