#include "components/charge/core/RecordFile.h"

#include "components/charge/core/Failure.h"

#include <array>
#include <cstdio>
#include <utility>

namespace tollvane::charge {

namespace {

constexpr std::size_t checksumDigits = 8;

constexpr std::array<std::uint32_t, 256> crcTable() {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < table.size(); ++i) {
        std::uint32_t value = i;
        for (int bit = 0; bit < 8; ++bit)
            value = (value & 1) != 0 ? 0xEDB88320u ^ (value >> 1) : value >> 1;
        table[i] = value;
    }
    return table;
}

std::string checksum(std::string_view payload) {
    char text[16] = {};
    std::snprintf(text, sizeof text, "%08x", static_cast<unsigned>(crc32(payload)));
    return text;
}

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
    for (std::size_t i = 0; i < payload.size(); ++i) {
        if (payload[i] == '\t')
            record.emplace_back();
        else if (payload[i] == '\\' && i + 1 < payload.size())
            record.back() += unescaped(payload[++i]);
        else
            record.back() += payload[i];
    }
    return record;
}

bool isGood(std::string_view line) {
    return line.size() > checksumDigits && line[checksumDigits] == ' ' &&
           line.substr(0, checksumDigits) == checksum(line.substr(checksumDigits + 1));
}

} // namespace

std::uint32_t crc32(std::string_view bytes) noexcept {
    static constexpr auto table = crcTable();
    std::uint32_t value = 0xFFFFFFFFu;
    for (char byte : bytes)
        value = table[(value ^ static_cast<unsigned char>(byte)) & 0xFF] ^ (value >> 8);
    return value ^ 0xFFFFFFFFu;
}

std::string encodeRecord(const Record& record) {
    std::string payload;
    for (std::size_t i = 0; i < record.size(); ++i) {
        if (i > 0)
            payload += '\t';
        appendEscaped(payload, record[i]);
    }
    return checksum(payload) + " " + payload + "\n";
}

DecodedRecords decodeRecords(std::string_view content) {
    DecodedRecords result;
    bool bad = false;
    std::size_t start = 0;
    while (start < content.size()) {
        const std::size_t end = content.find('\n', start);
        if (end == std::string_view::npos)
            break;
        const std::string_view line = content.substr(start, end - start);
        start = end + 1;
        if (!isGood(line)) {
            bad = true;
        } else if (bad) {
            result.damagedInside = true;
        } else {
            result.records.push_back(fieldsOf(line.substr(checksumDigits + 1)));
            result.validSize = start;
        }
    }
    return result;
}

RecordFile::RecordFile(FileStore& files, std::filesystem::path path, std::string title)
    : files_(files), path_(std::move(path)), title_(std::move(title)) {}

std::vector<Record> RecordFile::load() {
    const std::string content = files_.read(path_);
    DecodedRecords decoded = decodeRecords(content);
    if (decoded.damagedInside)
        throw failure(failurenumber::damagedFile, "Files",
                      "The " + title_ + " \"" + path_.filename().string() +
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
