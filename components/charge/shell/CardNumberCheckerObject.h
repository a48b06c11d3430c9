#pragma once

#include "components/common/DispatchObject.h"

#include "zendacard.h"

namespace tollvane::charge {

class CardNumberCheckerObject final : public com::DispatchObject<ICardNumberChecker> {
public:
    CardNumberCheckerObject();

    HRESULT STDMETHODCALLTYPE CheckCardNumber(BSTR number, VARIANT_BOOL* acceptable) override;
};

} // namespace tollvane::charge
