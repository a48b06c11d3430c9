// Sign-in answers and operators as automation objects.
#pragma once

#include "HostData.h"
#include "components/hostdata/operators/OperatorService.h"
#include "components/hostdata/win/HostObject.h"

#include <vector>

namespace tollvane::hostdata {

class SignInAnswerObject final : public HostObject<ISignInAnswer> {
public:
    explicit SignInAnswerObject(SignInAnswer answer)
        : HostObject(IID_ISignInAnswer), answer_(std::move(answer)) {}

    HRESULT STDMETHODCALLTYPE get_Succeeded(VARIANT_BOOL* succeeded) override;
    HRESULT STDMETHODCALLTYPE get_Token(BSTR* token) override;
    HRESULT STDMETHODCALLTYPE get_UserName(BSTR* name) override;
    HRESULT STDMETHODCALLTYPE get_First(BSTR* name) override;
    HRESULT STDMETHODCALLTYPE get_Last(BSTR* name) override;
    HRESULT STDMETHODCALLTYPE get_WaitMilliseconds(LONG* milliseconds) override;
    HRESULT STDMETHODCALLTYPE get_Examined(VARIANT_BOOL* examined) override;

private:
    const SignInAnswer answer_;
};

class OperatorObject final : public HostObject<IOperator> {
public:
    explicit OperatorObject(Operator who) : HostObject(IID_IOperator), who_(std::move(who)) {}

    HRESULT STDMETHODCALLTYPE get_Id(LONG* id) override;
    HRESULT STDMETHODCALLTYPE get_UserName(BSTR* name) override;
    HRESULT STDMETHODCALLTYPE get_First(BSTR* name) override;
    HRESULT STDMETHODCALLTYPE get_Last(BSTR* name) override;
    HRESULT STDMETHODCALLTYPE get_Enabled(VARIANT_BOOL* enabled) override;
    HRESULT STDMETHODCALLTYPE HasPrivilege(LONG number, VARIANT_BOOL* held) override;

private:
    const Operator who_;
};

class OperatorsObject final : public HostObject<IOperators> {
public:
    explicit OperatorsObject(std::vector<Operator> operators)
        : HostObject(IID_IOperators), operators_(std::move(operators)) {}

    HRESULT STDMETHODCALLTYPE get_Item(LONG index, IDispatch** who) override;
    HRESULT STDMETHODCALLTYPE get_Count(LONG* count) override;

private:
    const std::vector<Operator> operators_;
};

} // namespace tollvane::hostdata
