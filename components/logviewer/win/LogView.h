// The rows that the filter wants, and what they come to; keeps up with the reader.
#pragma once

#include "components/logviewer/core/LogFilter.h"
#include "components/logviewer/core/LogTotals.h"
#include "components/logviewer/win/LogReader.h"
#include "components/logviewer/win/RowTexts.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tollvane::logviewer {

class LogView {
public:
    explicit LogView(std::filesystem::path path) : reader_(std::move(path)) {}

    // Takes over what the reader has found since; answers whether anything changed.
    bool update();
    void setFilter(const LogFilter& filter);
    void restart() { reader_.restart(); }

    [[nodiscard]] std::size_t count() const noexcept { return shown_.size(); }
    [[nodiscard]] std::size_t allCount() const noexcept { return allCount_; }
    // Whether the last update only added rows behind those that were shown before it.
    [[nodiscard]] bool hasOnlyGrown() const noexcept { return hasOnlyGrown_; }
    [[nodiscard]] const LogTotals& totals() const noexcept { return totals_; }
    [[nodiscard]] const Progress& progress() const noexcept { return progress_; }
    [[nodiscard]] const std::vector<std::string>& operators() const noexcept { return operators_; }
    [[nodiscard]] const std::filesystem::path& path() const noexcept { return reader_.path(); }

    // By place among the shown rows. Nothing while the log is just being replaced.
    [[nodiscard]] std::optional<LogRow> row(std::size_t place) const;
    [[nodiscard]] const RowTexts& texts(std::size_t place);

private:
    void take(const LogIndex& index, bool isAnew);

    LogReader reader_;
    LogFilter filter_;
    Progress progress_;
    LogTotals totals_;
    std::vector<std::uint32_t> shown_;
    std::vector<std::string> operators_;
    std::size_t allCount_ = 0;
    bool stale_ = true;
    bool hasOnlyGrown_ = false;
    RowCache cache_;
};

} // namespace tollvane::logviewer
