// The login object.
#pragma once

#include "Environment.h"
#include "components/common/DispatchObject.h"
#include "components/environment/EnvironmentState.h"

namespace tollvane::environment {

class LoginObject final : public com::DispatchObject<ILogin> {
public:
    explicit LoginObject(SharedState state)
        : DispatchObject(IID_ILogin), state_(std::move(state)) {}

    // True at once when an operator is signed in already; otherwise asks for one. On a machine
    // without operators the first one is created and signed in.
    HRESULT STDMETHODCALLTYPE Login(VARIANT_BOOL* signedIn) override;
    // Without a dialog; False when the server refuses.
    HRESULT STDMETHODCALLTYPE LoginAs(BSTR userName, BSTR password,
                                      VARIANT_BOOL* signedIn) override;
    HRESULT STDMETHODCALLTYPE Logout() override;

private:
    const SharedState state_;
};

} // namespace tollvane::environment
