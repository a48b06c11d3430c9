// What stands in the columns of the list.
#pragma once

#include "components/logviewer/core/LogIndex.h"
#include "components/logviewer/win/LogReader.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tollvane::logviewer {

enum Column : int {
    columnDate,
    columnTime,
    columnOperator,
    columnType,
    columnMode,
    columnAmount,
    columnCard,
    columnResult,
    columnCodes,
    columnApproval,
    columnTransaction,
    columnReference,
    columnText,
    columnCount
};

using RowTexts = std::array<std::wstring, columnCount>;

[[nodiscard]] const wchar_t* kindText(LineKind kind) noexcept;
[[nodiscard]] const wchar_t* resultText(LineResult result) noexcept;
[[nodiscard]] const wchar_t* modeText(LineMode mode) noexcept;
// From the process's code page; control characters become blanks.
[[nodiscard]] std::wstring wideText(std::string_view text);

// A line that counts as damaged stands in the text column as it is.
[[nodiscard]] RowTexts rowTexts(const std::string& line, LineKind kind);

// The texts of the rows that are on the screen, kept until the log is another one.
class RowCache {
public:
    RowCache() : entries_(places) {}
    const RowTexts& texts(const LogReader& reader, std::uint32_t number, const LogRow& row);
    void clear();

private:
    struct Entry {
        bool filled = false;
        std::uint32_t number = 0;
        std::uint32_t length = 0;
        RowTexts texts;
    };
    static constexpr std::size_t places = 512;
    std::vector<Entry> entries_;
};

} // namespace tollvane::logviewer
