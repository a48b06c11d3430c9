// The environment component.
#pragma once

#include "Environment.h"
#include "components/common/DispatchObject.h"
#include "components/environment/EnvironmentState.h"

namespace tollvane::environment {

class EnvironmentObject final : public com::DispatchObject<IEnvironment> {
public:
    EnvironmentObject()
        : DispatchObject(IID_IEnvironment), state_(std::make_shared<EnvironmentState>()) {}

    HRESULT STDMETHODCALLTYPE INIT(BSTR commandLine) override;
    HRESULT STDMETHODCALLTYPE get_CurrentUser(IDispatch** user) override;
    HRESULT STDMETHODCALLTYPE get_DCServer(BSTR* computer) override;
    HRESULT STDMETHODCALLTYPE get_Options(IDispatch** options) override;
    HRESULT STDMETHODCALLTYPE SafeCreateUIObj(LONG kind, IDispatch** object) override;
    HRESULT STDMETHODCALLTYPE HasSecurity(VARIANT number, VARIANT_BOOL* held) override;
    HRESULT STDMETHODCALLTYPE SafeCreateObj(LONG kind, IDispatch** object) override;
    HRESULT STDMETHODCALLTYPE get_Data_Path(BSTR* path) override;
    HRESULT STDMETHODCALLTYPE get_Location(BSTR* location) override;
    HRESULT STDMETHODCALLTYPE get_MissingPayments(BSTR* list) override;
    HRESULT STDMETHODCALLTYPE RecordMissingPayments(LONG* count) override;

private:
    const SharedState state_;
};

} // namespace tollvane::environment
