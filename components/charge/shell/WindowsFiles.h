// Files of the machine, written through to the disk.
#pragma once

#include "components/charge/core/FileStore.h"

namespace tollvane::charge {

class WindowsFiles final : public FileStore {
public:
    using FileStore::read;
    std::string read(const FilePath& file, std::uint64_t from) override;
    std::uint64_t size(const FilePath& file) override;
    void append(const FilePath& file, std::string_view bytes) override;
    void truncate(const FilePath& file, std::uint64_t size) override;
    // A lock file in the folder that one process at a time can hold open; it stays behind, empty.
    std::unique_ptr<Lock> lock(const FilePath& folder) override;
};

} // namespace tollvane::charge
