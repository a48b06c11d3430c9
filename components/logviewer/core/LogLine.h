// One line of the transaction log, taken apart. The charge component writes it: columns that two or
// more blanks separate, "-" for what is empty, and a checksum of all that at the end ("#1a2b3c4d").
#pragma once

#include <cstdint>
#include <string_view>

namespace tollvane::logviewer {

enum class LineKind : std::uint8_t { Charge, Voice, Refund, Void, SignIn, Damaged, Blank };
enum class LineResult : std::uint8_t { None, Approved, Declined, Error, Held, Unknown };
enum class LineMode : std::uint8_t { None, Test, Live };

// The texts are parts of the line that was given. A damaged line has its kind and its whole text
// only; so has one that a crash cut short ("(interrupted)"), or that its checksum does not fit.
struct LogLine {
    LineKind kind = LineKind::Damaged;
    LineResult result = LineResult::None;
    LineMode mode = LineMode::None;
    bool isChecked = false;  // there was a checksum, and it fits
    std::int32_t day = 0;    // 20261121
    std::int64_t amount = 0; // scaled by 10,000
    std::string_view date;
    std::string_view time;
    std::string_view operatorName;
    std::string_view amountText;
    std::string_view card;
    std::string_view codes;
    std::string_view approval;
    std::string_view transaction;
    std::string_view reference;
    std::string_view text;
};

// The line comes without its end.
[[nodiscard]] LogLine parseLine(std::string_view line);

} // namespace tollvane::logviewer
