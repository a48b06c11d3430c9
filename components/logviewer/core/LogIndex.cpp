#include "components/logviewer/core/LogIndex.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>
#include <system_error>

namespace tollvane::logviewer {

namespace {

constexpr std::uint16_t mostOperators = std::numeric_limits<std::uint16_t>::max();

// Ids are digits; nothing for another text.
std::optional<std::uint64_t> idOf(std::string_view text) {
    constexpr std::size_t mostDigits = 19;
    if (text.size() > mostDigits)
        return std::nullopt;
    std::uint64_t id = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, id);
    if (read.ec != std::errc() || read.ptr != end)
        return std::nullopt;
    return id;
}

} // namespace

LogIndex::LogIndex() : operators_(1), operatorIds_{{"", std::uint16_t{0}}} {}

std::size_t LogIndex::feed(std::string_view bytes) {
    dropTail();
    std::size_t start = 0;
    for (;;) {
        const std::size_t end = bytes.find('\n', start);
        if (end == std::string_view::npos)
            return start;
        const std::size_t next = end + 1;
        std::string_view line = bytes.substr(start, end - start);
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        add(line);
        taken_ += next - start;
        start = next;
    }
}

void LogIndex::feedDamaged(std::string_view bytes) {
    dropTail();
    addRow(LogLine{}, bytes.size());
    taken_ += bytes.size();
}

void LogIndex::finish(std::string_view tail) {
    dropTail();
    settleVoids();
    if (parseLine(tail).kind == LineKind::Blank)
        return;
    addRow(LogLine{}, tail.size());
    hasTail_ = true;
}

void LogIndex::dropTail() {
    if (hasTail_)
        rows_.pop_back();
    hasTail_ = false;
}

void LogIndex::add(std::string_view text) {
    LogLine line = parseLine(text);
    if (line.kind == LineKind::Blank)
        return;
    // Older logs have no checksums. One that has begun to have them goes on with them.
    if (checks_ && !line.isChecked)
        line = LogLine{};
    checks_ = checks_ || line.isChecked;
    addRow(line, text.size());
}

void LogIndex::addRow(const LogLine& line, std::size_t length) {
    LogRow row{};
    row.offset = taken_;
    row.length = static_cast<std::uint32_t>(length);
    row.day = line.day;
    row.kind = line.kind;
    row.result = line.result;
    row.mode = line.mode;
    row.operatorId = operatorId(line.operatorName);
    if (line.result == LineResult::Approved)
        settle(line, row);
    rows_.push_back(row);
}

LogIndex::Transactions& LogIndex::transactionsOf(LineMode mode) noexcept {
    return mode == LineMode::Live ? live_ : test_;
}

void LogIndex::settle(const LogLine& line, LogRow& row) {
    const auto place = static_cast<std::uint32_t>(rows_.size());
    if (line.kind == LineKind::Void) {
        if (const auto reference = idOf(line.reference))
            openVoids_.push_back({place, *reference});
        return;
    }
    row.effect = line.kind == LineKind::Refund ? -line.amount : line.amount;
    if (const auto id = idOf(line.transaction)) {
        Transactions& known = transactionsOf(line.mode);
        known.ordered = known.ordered && (known.rows.empty() || known.rows.back().first < *id);
        known.rows.emplace_back(*id, place);
    }
}

void LogIndex::settleVoids() {
    if (openVoids_.empty())
        return;
    for (Transactions* known : {&test_, &live_}) {
        if (!known->ordered)
            std::sort(known->rows.begin(), known->rows.end());
        known->ordered = true;
    }
    std::erase_if(openVoids_, [this](const OpenVoid& open) {
        LogRow& row = rows_[open.row];
        const auto& known = transactionsOf(row.mode).rows;
        const auto found = std::lower_bound(known.begin(), known.end(),
                                            std::pair(open.reference, std::uint32_t{0}));
        if (found == known.end() || found->first != open.reference)
            return false;
        row.effect = -rows_[found->second].effect;
        return true;
    });
}

std::uint16_t LogIndex::operatorId(std::string_view name) {
    const auto next = static_cast<std::uint16_t>(operators_.size());
    // Most lines follow one of the same operator.
    if (!rows_.empty() && operators_[rows_.back().operatorId] == name)
        return rows_.back().operatorId;
    const auto [found, isNew] = operatorIds_.try_emplace(std::string(name), next);
    if (isNew && operators_.size() == mostOperators) {
        operatorIds_.erase(found);
        return 0;
    }
    if (isNew)
        operators_.emplace_back(name);
    return found->second;
}

} // namespace tollvane::logviewer
