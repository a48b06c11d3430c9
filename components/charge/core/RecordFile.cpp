#include "components/charge/core/RecordFile.h"

#include "components/charge/core/Failure.h"
#include "platform/Checksum.h"

#include <algorithm>
#include <utility>

namespace tollvane::charge {

namespace {

void appendEscaped(std::string& out, const std::string& field) {
    for (char character : field) {
        switch (character) {
        case '\\': out += "\\\\"; break;
        case '\t': out += "\\t"; break;
        case '\n': out += "\\n"; break;
        case '\r': out += "\\r"; break;
        default: out += character;
        }
    }
}

char unescaped(char letter) {
    switch (letter) {
    case 't': return '\t';
    case 'n': return '\n';
    case 'r': return '\r';
    default: return letter;
    }
}

Record fieldsOf(std::string_view payload) {
    Record record(1);
    while (!payload.empty()) {
        const std::size_t plain = std::min(payload.find_first_of("\t\\"), payload.size());
        record.back() += payload.substr(0, plain);
        payload.remove_prefix(plain);
        if (payload.starts_with('\t')) {
            record.emplace_back();
            payload.remove_prefix(1);
        } else if (payload.size() > 1) {
            record.back() += unescaped(payload[1]);
            payload.remove_prefix(2);
        } else {
            record.back() += payload;
            payload = {};
        }
    }
    return record;
}

bool isGood(std::string_view line) {
    return line.size() > kChecksumDigits && line[kChecksumDigits] == ' ' &&
           line.substr(0, kChecksumDigits) == checksumText(line.substr(kChecksumDigits + 1));
}

// A crash leaves the beginning of one record, or zeros where its beginning was to be. A whole line
// that is wrong, or a record behind which another byte stands than its end, was on the disk once.
bool isHalfWritten(std::string_view rest) {
    const std::size_t end = rest.find('\n');
    if (end == std::string_view::npos)
        return !isGood(rest.substr(0, rest.size() - 1));
    return rest.front() == '\0' && end + 1 == rest.size();
}

} // namespace

std::string encodeRecord(const Record& record) {
    std::string payload;
    for (std::size_t i = 0; i < record.size(); ++i) {
        if (i > 0)
            payload += '\t';
        appendEscaped(payload, record[i]);
    }
    return checksumText(payload) + " " + payload + "\n";
}

DecodedRecords decodeRecords(std::string_view content) {
    DecodedRecords result;
    std::size_t start = 0;
    while (start < content.size()) {
        const std::size_t end = content.find('\n', start);
        const std::string_view line = content.substr(start, end - start);
        if (end == std::string_view::npos || !isGood(line))
            break;
        result.records.push_back(fieldsOf(line.substr(kChecksumDigits + 1)));
        start = end + 1;
        result.validSize = start;
    }
    result.damaged = start < content.size() && !isHalfWritten(content.substr(start));
    return result;
}

RecordFile::RecordFile(FileStore& files, FilePath path, std::string title)
    : files_(files), path_(std::move(path)), title_(std::move(title)) {}

std::vector<Record> RecordFile::load() {
    const std::string content = files_.read(path_);
    DecodedRecords decoded = decodeRecords(content);
    if (decoded.damaged)
        throw failure(failurenumber::damagedFile, "Files",
                      "The " + title_ + " \"" + path_.name().plainText() +
                          "\" is damaged. Nothing was sent. Put the file right from a backup.");
    size_ = decoded.validSize;
    if (content.size() > size_)
        files_.truncate(path_, size_);
    return std::move(decoded.records);
}

void RecordFile::cutLeftovers() {
    if (files_.size(path_) > size_)
        files_.truncate(path_, size_);
}

void RecordFile::append(const Record& record) {
    const std::string line = encodeRecord(record);
    cutLeftovers();
    try {
        files_.append(path_, line);
    } catch (const FileFailure&) {
        try {
            cutLeftovers();
        } catch (const FileFailure&) {
            // The next append or load deals with what is left.
        }
        throw;
    }
    size_ += line.size();
}

void RecordFile::clear() {
    files_.truncate(path_, 0);
    size_ = 0;
}

} // namespace tollvane::charge
