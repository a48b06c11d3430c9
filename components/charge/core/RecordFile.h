// An append-only file of records. Each record is one line: a checksum (CRC-32, eight hex digits), a
// blank and the fields, separated by tabs. What a crash leaves half-written at the end is
// recognised and cut off; all other damage is reported and nothing is touched.
#pragma once

#include "components/charge/core/FileStore.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tollvane::charge {

using Record = std::vector<std::string>;

// One line with its end. Fields may hold any bytes.
std::string encodeRecord(const Record& record);

struct DecodedRecords {
    std::vector<Record> records;
    std::uint64_t validSize = 0; // bytes up to the end of the last good record
    bool damaged = false;        // what follows the good records is not what a crash leaves
};
DecodedRecords decodeRecords(std::string_view content);

class RecordFile {
public:
    // title: what the file is to a person, such as "ledger".
    RecordFile(FileStore& files, FilePath path, std::string title);

    // All records. Cuts off a half-written one. Raises FileFailure, or failurenumber::damagedFile
    // for a file that is damaged.
    std::vector<Record> load();

    // On the disk when it returns. Raises FileFailure; then the record is either gone or, when even
    // that failed, removed by the next call or seen by the next load. Call load first.
    void append(const Record& record);

    // Removes all records. Raises FileFailure.
    void clear();

    std::uint64_t size() const noexcept { return size_; }

private:
    void cutLeftovers();

    FileStore& files_;
    FilePath path_;
    std::string title_;
    std::uint64_t size_ = 0;
};

} // namespace tollvane::charge
