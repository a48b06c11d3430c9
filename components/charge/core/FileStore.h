// What the component asks of the file system: whole reads, and appends that are on the disk when
// they return.
#pragma once

#include "components/charge/core/FilePath.h"

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tollvane::charge {

// The text is the system's own reason, such as "There is not enough space on the disk."
class FileFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class FileStore {
public:
    virtual ~FileStore() = default;

    // All of them raise FileFailure.

    // The content from a byte on; empty for a file that does not exist or is not that long.
    virtual std::string read(const FilePath& file, std::uint64_t from) = 0;
    std::string read(const FilePath& file) { return read(file, 0); }
    // 0 for a file that does not exist.
    virtual std::uint64_t size(const FilePath& file) = 0;
    // Creates the file and its folder where missing. When this returns, all bytes are on the disk;
    // when it raises, any number of them may be.
    virtual void append(const FilePath& file, std::string_view bytes) = 0;
    // Shortens a file, on the disk when this returns.
    virtual void truncate(const FilePath& file, std::uint64_t size) = 0;

    // Keeps other processes out of the folder's files while the answer lives. Waits a few seconds
    // for them, then raises.
    class Lock {
    public:
        virtual ~Lock() = default;
    };
    virtual std::unique_ptr<Lock> lock(const FilePath& folder) = 0;
};

} // namespace tollvane::charge
