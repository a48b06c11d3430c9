// The About component towards automation clients.
#pragma once

#include "components/common/DispatchObject.h"

#include "About.h"

namespace tollvane::about {

class AboutObject final : public com::DispatchObject<IAbout> {
public:
    AboutObject() : DispatchObject(IID_IAbout) {}

    HRESULT STDMETHODCALLTYPE ShowAbout(VARIANT_BOOL withComponents, LONG owner) override;
};

} // namespace tollvane::about
