// What is known of every line of a log without keeping its text: enough to filter and to add up.
#pragma once

#include "components/logviewer/core/LogLine.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tollvane::logviewer {

struct LogRow {
    std::uint64_t offset; // of the line in the file
    std::int64_t effect;  // what the line does to the shop's money, scaled by 10,000
    std::int32_t day;
    std::uint32_t length; // without the line's end
    std::uint16_t operatorId;
    LineKind kind;
    LineResult result;
    LineMode mode;
};

// Grows with the file. An approved charge adds its amount, an approved refund takes it away, and an
// approved void takes back what the transaction did that it refers to.
class LogIndex {
public:
    LogIndex();

    // The bytes that follow what was taken before; answers how many of them were whole lines. The
    // rest is to be given again when there is more.
    std::size_t feed(std::string_view bytes);
    // Takes all of the bytes as one damaged line: they are too long to be one of ours.
    void feedDamaged(std::string_view bytes);
    // The file ends here for now. The bytes have no line end: a line that a crash cut short, or one
    // that is just being written. The row is replaced when more comes.
    void finish(std::string_view tail);

    [[nodiscard]] const std::vector<LogRow>& rows() const noexcept { return rows_; }
    // By operatorId; the first one is empty, for lines that name none.
    [[nodiscard]] const std::vector<std::string>& operators() const noexcept { return operators_; }
    // How much of the file has been taken as whole lines.
    [[nodiscard]] std::uint64_t taken() const noexcept { return taken_; }

private:
    struct Transactions {
        std::vector<std::pair<std::uint64_t, std::uint32_t>> rows; // id and row
        bool ordered = true;
    };
    struct OpenVoid {
        std::uint32_t row;
        std::uint64_t reference;
    };

    void add(std::string_view line);
    void addRow(const LogLine& line, std::size_t length);
    void settle(const LogLine& line, LogRow& row);
    void settleVoids();
    Transactions& transactionsOf(LineMode mode) noexcept;
    std::uint16_t operatorId(std::string_view name);
    void dropTail();

    std::vector<LogRow> rows_;
    std::vector<std::string> operators_;
    std::unordered_map<std::string, std::uint16_t> operatorIds_;
    Transactions test_;
    Transactions live_;
    std::vector<OpenVoid> openVoids_;
    std::uint64_t taken_ = 0;
    bool hasTail_ = false;
    bool checks_ = false; // a line with a checksum has been seen
};

} // namespace tollvane::logviewer
