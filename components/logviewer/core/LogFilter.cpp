#include "components/logviewer/core/LogFilter.h"

namespace tollvane::logviewer {

bool LogFilter::isEmpty() const noexcept {
    return !from && !to && !kind && !operatorId && !result && !mode && !damagedOnly;
}

bool LogFilter::wants(const LogRow& row) const noexcept {
    if (damagedOnly)
        return row.kind == LineKind::Damaged;
    if (row.kind == LineKind::Damaged)
        return isEmpty();
    return (!from || row.day >= *from) && (!to || row.day <= *to) && (!kind || row.kind == *kind) &&
           (!operatorId || row.operatorId == *operatorId) && (!result || row.result == *result) &&
           (!mode || row.mode == *mode);
}

} // namespace tollvane::logviewer
