#include "components/logviewer/win/LogView.h"

namespace tollvane::logviewer {

bool LogView::update() {
    return reader_.look([this](const LogIndex& index, const Progress& now) {
        if (!stale_ && now.version == progress_.version)
            return false;
        if (now.generation != progress_.generation)
            cache_.clear();
        // At the end of the file a row may be replaced, and a void that finds its transaction
        // changes one that was there before: then all are added up anew.
        const bool isAnew =
            stale_ || now.complete || progress_.complete || now.generation != progress_.generation;
        progress_ = now;
        take(index, isAnew);
        return true;
    });
}

void LogView::take(const LogIndex& index, bool isAnew) {
    const std::vector<LogRow>& rows = index.rows();
    hasOnlyGrown_ = !isAnew;
    if (isAnew) {
        allCount_ = 0;
        totals_ = LogTotals();
        shown_.clear();
    }
    stale_ = false;
    for (auto number = static_cast<std::uint32_t>(allCount_); number < rows.size(); ++number) {
        if (!filter_.wants(rows[number]))
            continue;
        shown_.push_back(number);
        totals_.add(rows[number]);
    }
    allCount_ = rows.size();
    if (operators_.size() != index.operators().size())
        operators_ = index.operators();
}

void LogView::setFilter(const LogFilter& filter) {
    filter_ = filter;
    stale_ = true;
}

std::optional<LogRow> LogView::row(std::size_t place) const {
    return reader_.look([&](const LogIndex& index, const Progress&) -> std::optional<LogRow> {
        if (place >= shown_.size() || shown_[place] >= index.rows().size())
            return std::nullopt;
        return index.rows()[shown_[place]];
    });
}

const RowTexts& LogView::texts(std::size_t place) {
    static const RowTexts none;
    const std::optional<LogRow> found = row(place);
    return found ? cache_.texts(reader_, shown_[place], *found) : none;
}

} // namespace tollvane::logviewer
