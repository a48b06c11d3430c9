#include "components/hostdata/win/VariantList.h"

#include "components/common/ComFailure.h"
#include "components/hostdata/win/HostObject.h"

namespace tollvane::hostdata {

VariantList::VariantList(const VARIANT& given) {
    com::check(VariantCopyInd(copy_.put(), const_cast<VARIANT*>(&given))); // it only reads
    if (V_VT(&copy_.get()) != (VT_ARRAY | VT_VARIANT) ||
        SafeArrayGetDim(V_ARRAY(&copy_.get())) != 1)
        throw com::ComponentError(com::runtimeError(13), kSource,
                                  "The fields of a payment come as a list of names and a list of "
                                  "values.");
    SAFEARRAY* list = V_ARRAY(&copy_.get());
    void* elements = nullptr;
    com::check(SafeArrayAccessData(list, &elements));
    elements_ = static_cast<const VARIANT*>(elements);
    size_ = list->rgsabound[0].cElements;
}

VariantList::~VariantList() {
    SafeArrayUnaccessData(V_ARRAY(&copy_.get()));
}

} // namespace tollvane::hostdata
