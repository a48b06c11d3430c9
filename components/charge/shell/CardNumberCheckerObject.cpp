#include "components/charge/shell/CardNumberCheckerObject.h"

#include "components/charge/core/CardNumberRules.h"
#include "components/charge/shell/FieldTexts.h"
#include "components/common/ComFailure.h"

namespace tollvane::charge {

CardNumberCheckerObject::CardNumberCheckerObject() : DispatchObject(IID_ICardNumberChecker) {}

HRESULT CardNumberCheckerObject::CheckCardNumber(BSTR number, VARIANT_BOOL* acceptable) {
    return com::guarded(interfaceId(), componentSource, [&] {
        com::give(acceptable, acceptableCardNumber(secretFrom(number).view()));
    });
}

} // namespace tollvane::charge
