#include "components/hostdata/tests/SyncWatch.h"

namespace tollvane::hostdata {

namespace {
SyncWatch* current = nullptr; // the engine's callbacks carry no context of their own
} // namespace

SyncWatch::SyncWatch() : real_(sqlite3_vfs_find(nullptr)), vfs_(*real_) {
    vfs_.zName = "sync-watch";
    vfs_.pNext = nullptr;
    vfs_.xOpen = &SyncWatch::open;
    current = this;
    sqlite3_vfs_register(&vfs_, 1);
}

SyncWatch::~SyncWatch() {
    sqlite3_vfs_unregister(&vfs_);
    sqlite3_vfs_register(real_, 1);
    current = nullptr;
}

int SyncWatch::open(sqlite3_vfs*, sqlite3_filename name, sqlite3_file* file, int flags,
                    int* outFlags) {
    const int result = current->real_->xOpen(current->real_, name, file, flags, outFlags);
    if (result != SQLITE_OK || file->pMethods == nullptr)
        return result;
    auto& replaced = current->replaced_[file->pMethods];
    if (!replaced) {
        replaced = std::make_unique<sqlite3_io_methods>(*file->pMethods);
        replaced->xWrite = &SyncWatch::write;
        replaced->xSync = &SyncWatch::sync;
        current->originals_[replaced.get()] = file->pMethods;
    }
    current->mainFiles_[file] = (flags & SQLITE_OPEN_MAIN_DB) != 0;
    file->pMethods = replaced.get();
    return result;
}

int SyncWatch::write(sqlite3_file* file, const void* data, int count, sqlite3_int64 at) {
    if (current->mainFiles_[file])
        ++current->unsynced_;
    return current->originals_.at(file->pMethods)->xWrite(file, data, count, at);
}

int SyncWatch::sync(sqlite3_file* file, int flags) {
    if (current->failing_)
        return SQLITE_IOERR_FSYNC;
    ++current->syncs_;
    if (current->mainFiles_[file])
        current->unsynced_ = 0;
    return current->originals_.at(file->pMethods)->xSync(file, flags);
}

} // namespace tollvane::hostdata
