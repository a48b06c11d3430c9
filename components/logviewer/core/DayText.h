// Days as an operator types them, in the log's own form.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tollvane::logviewer {

enum class PeriodEnd { First, Last };

// "2026-11-21" as 20261121; "2026-11" and "2026" give the first or the last day of the month or
// year. Blanks around do not matter. Nothing for another text, the empty one too.
[[nodiscard]] std::optional<std::int32_t> dayFromText(std::string_view text, PeriodEnd end);

} // namespace tollvane::logviewer
