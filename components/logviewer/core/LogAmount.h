// Amounts as the log writes them: a point, no symbol, no grouping. Whole numbers scaled by 10,000;
// nothing here ever goes through a fraction of a binary kind.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tollvane::logviewer {

// "12.50", "-0.05", "0.1234". Nothing for another text, or for one that does not fit.
[[nodiscard]] std::optional<std::int64_t> amountFromText(std::string_view text);

// Two decimal places; four when there is less than a cent.
[[nodiscard]] std::string amountText(std::int64_t scaled);

// A sum that knows when it has become too large to be told.
class Sum {
public:
    void add(std::int64_t scaled) noexcept;
    void subtract(std::int64_t scaled) noexcept;
    // Nothing once it has been too large.
    [[nodiscard]] std::optional<std::int64_t> value() const noexcept {
        return fits_ ? std::optional(value_) : std::nullopt;
    }

private:
    std::int64_t value_ = 0;
    bool fits_ = true;
};

} // namespace tollvane::logviewer
