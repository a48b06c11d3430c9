// Which lines are wanted.
#pragma once

#include "components/logviewer/core/LogIndex.h"

#include <cstdint>
#include <optional>

namespace tollvane::logviewer {

// What is not set does not matter. Days are inclusive, such as 20261121.
struct LogFilter {
    std::optional<std::int32_t> from = {};
    std::optional<std::int32_t> to = {};
    std::optional<LineKind> kind = {};
    std::optional<std::uint16_t> operatorId = {};
    std::optional<LineResult> result = {};
    std::optional<LineMode> mode = {};
    // Damaged lines and nothing else. They have no day, operator or result: every other wish hides
    // them, and this one does not ask for the others.
    bool damagedOnly = false;

    // Nothing is asked for: every line is wanted.
    [[nodiscard]] bool isEmpty() const noexcept;
    [[nodiscard]] bool wants(const LogRow& row) const noexcept;
};

} // namespace tollvane::logviewer
