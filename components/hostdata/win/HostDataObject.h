// The host data server's object, one for each client.
#pragma once

#include "HostData.h"
#include "components/hostdata/win/HostObject.h"

#include <mutex>
#include <string>

namespace tollvane::hostdata {

class HostDataObject final : public HostObject<IHostData> {
public:
    HostDataObject() : HostObject(IID_IHostData) {}

    HRESULT STDMETHODCALLTYPE SafeCreateObj(LONG kind, IDispatch** object) override;
    HRESULT STDMETHODCALLTYPE CreateDataObject(LONG kind, BSTR token, IDispatch** object) override;
    HRESULT STDMETHODCALLTYPE get_Data_Path(BSTR* path) override;
    HRESULT STDMETHODCALLTYPE get_Location(BSTR* location) override;

    HRESULT STDMETHODCALLTYPE get_OperatorCount(LONG* count) override;
    HRESULT STDMETHODCALLTYPE CreateFirstOperator(BSTR first, BSTR last, BSTR userName,
                                                  BSTR password, LONG* id) override;
    HRESULT STDMETHODCALLTYPE SignIn(BSTR userName, BSTR password, IDispatch** answer) override;
    HRESULT STDMETHODCALLTYPE SignOut(BSTR token) override;
    HRESULT STDMETHODCALLTYPE HasPrivilege(BSTR token, LONG number, VARIANT_BOOL* held) override;
    HRESULT STDMETHODCALLTYPE ChangePassword(BSTR token, BSTR oldPassword,
                                             BSTR newPassword) override;

    HRESULT STDMETHODCALLTYPE Operators(BSTR token, IDispatch** operators) override;
    HRESULT STDMETHODCALLTYPE AddOperator(BSTR token, BSTR first, BSTR last, BSTR userName,
                                          BSTR password, LONG* id) override;
    HRESULT STDMETHODCALLTYPE SetOperatorEnabled(BSTR token, LONG id,
                                                 VARIANT_BOOL enabled) override;
    HRESULT STDMETHODCALLTYPE SetPrivilege(BSTR token, LONG id, LONG number,
                                           VARIANT_BOOL granted) override;
    HRESULT STDMETHODCALLTYPE ResetPassword(BSTR token, LONG id, BSTR password) override;
    HRESULT STDMETHODCALLTYPE StoredPayments(LONG days, BSTR* list) override;
    HRESULT STDMETHODCALLTYPE StorePayment(VARIANT names, VARIANT values, LONG* id) override;
    HRESULT STDMETHODCALLTYPE ConfigureSettings() override;

private:
    // User name of the operator whom this client signed in last; empty when nobody is signed in.
    std::string signedInOperator();

    std::mutex mutex_;
    std::string token_;
};

} // namespace tollvane::hostdata
