// Lines of a log as tests need them.
#pragma once

#include "components/logviewer/core/LogFilter.h"
#include "components/logviewer/core/LogIndex.h"
#include "components/logviewer/core/LogTotals.h"
#include "platform/Checksum.h"

#include <string>

namespace tollvane::logviewer {

struct Entry {
    std::string moment = "2026-11-21 09:05:03";
    std::string who = "Olive Trent";
    std::string type = "CHARGE";
    std::string mode = "LIVE";
    std::string amount = "12.50";
    std::string result = "APPROVED";
    std::string transaction = "1000000001";
    std::string reference = "-";
};

// With its line end, and without a checksum as in older logs.
inline std::string lineOf(const Entry& entry) {
    return entry.moment + "  " + entry.who + "           " + entry.type + "  " + entry.mode +
           "        " + entry.amount + "  ****1881  " + entry.result + "  1/1/0    123456  " +
           entry.transaction + "  " + entry.reference +
           "           [0123456789abcdef0123]  The transaction has been approved.\r\n";
}

// With its line end.
inline std::string checkedLineOf(const Entry& entry) {
    std::string line = lineOf(entry);
    line.erase(line.size() - 2);
    return line + "  #" + checksumText(line) + "\r\n";
}

inline LogIndex indexOf(const std::string& text) {
    LogIndex index;
    const std::size_t whole = index.feed(text);
    index.finish(std::string_view(text).substr(whole));
    return index;
}

inline LogTotals totalsOf(const LogIndex& index, const LogFilter& filter = {}) {
    LogTotals totals;
    for (const LogRow& row : index.rows())
        if (filter.wants(row))
            totals.add(row);
    return totals;
}

// Amounts in hundredths, as the log scales them.
constexpr std::int64_t cents(std::int64_t value) {
    return value * 100;
}

} // namespace tollvane::logviewer
