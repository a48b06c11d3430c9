// The signed-in user and the options as automation objects.
#pragma once

#include "Environment.h"
#include "components/common/DispatchObject.h"
#include "components/environment/EnvironmentState.h"
#include "components/environment/OutArguments.h"

namespace tollvane::environment {

class PersonNameObject final : public com::DispatchObject<IPersonName> {
public:
    PersonNameObject(std::wstring first, std::wstring last)
        : DispatchObject(IID_IPersonName), first_(std::move(first)), last_(std::move(last)) {}

    HRESULT STDMETHODCALLTYPE get_First(BSTR* name) override;
    HRESULT STDMETHODCALLTYPE get_Last(BSTR* name) override;

private:
    const std::wstring first_;
    const std::wstring last_;
};

class CurrentUserObject final : public com::DispatchObject<ICurrentUser> {
public:
    explicit CurrentUserObject(SharedState state)
        : DispatchObject(IID_ICurrentUser), state_(std::move(state)) {}

    HRESULT STDMETHODCALLTYPE get_Item(IDispatch** person) override;

private:
    const SharedState state_;
};

class OptionsObject final : public com::DispatchObject<IEnvironmentOptions> {
public:
    explicit OptionsObject(SharedState state)
        : DispatchObject(IID_IEnvironmentOptions), state_(std::move(state)) {}

    HRESULT STDMETHODCALLTYPE get_DCObject(IDispatch** server) override;
    HRESULT STDMETHODCALLTYPE put_DCObject(IDispatch* server) override;
    HRESULT STDMETHODCALLTYPE putref_DCObject(IDispatch* server) override;

private:
    const SharedState state_;
};

} // namespace tollvane::environment
