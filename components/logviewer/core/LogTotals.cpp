#include "components/logviewer/core/LogTotals.h"

namespace tollvane::logviewer {

std::optional<std::int64_t> ModeTotals::net() const noexcept {
    const auto charged = charges.sum.value();
    const auto refunded = refunds.sum.value();
    const auto voided = voids.sum.value();
    if (!charged || !refunded || !voided)
        return std::nullopt;
    Sum net;
    net.add(*charged);
    net.subtract(*refunded);
    net.subtract(*voided);
    return net.value();
}

void LogTotals::add(const LogRow& row) noexcept {
    ++lines;
    if (row.kind == LineKind::Damaged)
        ++damaged;
    if (row.result != LineResult::Approved)
        return;
    ModeTotals& totals = row.mode == LineMode::Live ? live : test;
    switch (row.kind) {
    case LineKind::Charge:
    case LineKind::Voice: totals.charges.add(row.effect); break;
    case LineKind::Refund: totals.refunds.add(-row.effect); break;
    case LineKind::Void: totals.voids.add(-row.effect); break;
    case LineKind::SignIn:
    case LineKind::Damaged:
    case LineKind::Blank: break;
    }
}

} // namespace tollvane::logviewer
