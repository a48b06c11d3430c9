#include "components/environment/OutArguments.h"

#include "components/common/ComFailure.h"
#include "components/common/ComText.h"

namespace tollvane::environment {

void give(BSTR* out, const std::wstring& text) {
    if (out == nullptr)
        com::throwFailure(E_POINTER);
    *out = nullptr;
    *out = com::Bstr(std::wstring_view(text)).release();
}

void give(IDispatch** out, com::ComPtr<IDispatch> object) {
    if (out == nullptr)
        com::throwFailure(E_POINTER);
    *out = object.release();
}

} // namespace tollvane::environment
