// The charge component towards automation clients: translates, and decides nothing.
#pragma once

#include "components/charge/core/ChargeService.h"
#include "components/charge/shell/RegistrySettings.h"
#include "components/charge/shell/SystemParts.h"
#include "components/charge/shell/WindowsFiles.h"
#include "components/common/DispatchObject.h"

#include "zendacard.h"

#include <memory>

namespace tollvane::charge {

// The service with what it stands on; field objects share it.
struct Till {
    WindowsFiles files;
    SystemClock clock;
    RegistrySettings settings;
    ChargeService service;

    Till();
};

class ChargeObject final : public com::DispatchObject<ITollvane> {
public:
    // Settles what an earlier run left open; that it cannot does not keep the object from living.
    ChargeObject();

    // Answers the card's data itself, so that no copy stays. Scripts hand over variables as
    // variants by reference; the operator's name may come as one.
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                     UINT* badArgument) override;

    HRESULT STDMETHODCALLTYPE ClearFields() override;
    HRESULT STDMETHODCALLTYPE TransactionField(BSTR name, ITransactionField** field) override;
    HRESULT STDMETHODCALLTYPE AuthorizeAndCapture(VARIANT_BOOL* approved) override;
    HRESULT STDMETHODCALLTYPE CaptureVoiceAuth(BSTR code, VARIANT_BOOL* approved) override;
    HRESULT STDMETHODCALLTYPE Credit(BSTR id, VARIANT_BOOL* approved) override;
    HRESULT STDMETHODCALLTYPE Void(BSTR id, VARIANT_BOOL* approved) override;
    HRESULT STDMETHODCALLTYPE ConfigureGateway() override;
    HRESULT STDMETHODCALLTYPE ConfigureSettings() override;
    HRESULT STDMETHODCALLTYPE LogLoggedInUser(BSTR* operatorName) override;
    HRESULT STDMETHODCALLTYPE Free() override;
    HRESULT STDMETHODCALLTYPE ApprovedPayments(LONG days, BSTR* list) override;

    HRESULT STDMETHODCALLTYPE get_Amount(CURRENCY* amount) override;
    HRESULT STDMETHODCALLTYPE put_Amount(CURRENCY amount) override;
    HRESULT STDMETHODCALLTYPE get_CardNumber(BSTR* text) override;
    HRESULT STDMETHODCALLTYPE put_CardNumber(BSTR text) override;
    HRESULT STDMETHODCALLTYPE get_FirstName(BSTR* text) override;
    HRESULT STDMETHODCALLTYPE put_FirstName(BSTR text) override;
    HRESULT STDMETHODCALLTYPE get_LastName(BSTR* text) override;
    HRESULT STDMETHODCALLTYPE put_LastName(BSTR text) override;
    HRESULT STDMETHODCALLTYPE get_ExpirationDate(BSTR* text) override;
    HRESULT STDMETHODCALLTYPE put_ExpirationDate(BSTR text) override;
    HRESULT STDMETHODCALLTYPE get_Tax(CURRENCY* amount) override;
    HRESULT STDMETHODCALLTYPE put_Tax(CURRENCY amount) override;
    HRESULT STDMETHODCALLTYPE get_TaxExempt(VARIANT_BOOL* exempt) override;
    HRESULT STDMETHODCALLTYPE put_TaxExempt(VARIANT_BOOL exempt) override;
    HRESULT STDMETHODCALLTYPE get_StreetAddress(BSTR* text) override;
    HRESULT STDMETHODCALLTYPE put_StreetAddress(BSTR text) override;
    HRESULT STDMETHODCALLTYPE get_City(BSTR* text) override;
    HRESULT STDMETHODCALLTYPE put_City(BSTR text) override;
    HRESULT STDMETHODCALLTYPE get_State(BSTR* text) override;
    HRESULT STDMETHODCALLTYPE put_State(BSTR text) override;
    HRESULT STDMETHODCALLTYPE get_ZipCode(BSTR* text) override;
    HRESULT STDMETHODCALLTYPE put_ZipCode(BSTR text) override;
    HRESULT STDMETHODCALLTYPE get_InvoiceNumber(BSTR* text) override;
    HRESULT STDMETHODCALLTYPE put_InvoiceNumber(BSTR text) override;
    HRESULT STDMETHODCALLTYPE get_Description(BSTR* text) override;
    HRESULT STDMETHODCALLTYPE put_Description(BSTR text) override;
    HRESULT STDMETHODCALLTYPE get_CustomerEmail(BSTR* text) override;
    HRESULT STDMETHODCALLTYPE put_CustomerEmail(BSTR text) override;
    HRESULT STDMETHODCALLTYPE get_Track1(BSTR* text) override;
    HRESULT STDMETHODCALLTYPE put_Track1(BSTR text) override;

    HRESULT STDMETHODCALLTYPE get_ResponseCode(LONG* code) override;
    HRESULT STDMETHODCALLTYPE get_ResponseReasonCode(LONG* code) override;
    HRESULT STDMETHODCALLTYPE get_ResponseSubCode(LONG* code) override;
    HRESULT STDMETHODCALLTYPE get_ResponseReasonText(BSTR* text) override;
    HRESULT STDMETHODCALLTYPE get_ApprovalCode(BSTR* text) override;
    HRESULT STDMETHODCALLTYPE get_TransactionID(BSTR* text) override;

    HRESULT STDMETHODCALLTYPE get_TestMode(VARIANT_BOOL* testMode) override;
    HRESULT STDMETHODCALLTYPE get_LogFilePath(BSTR* folder) override;
    HRESULT STDMETHODCALLTYPE get_LogFileName(BSTR* name) override;
    HRESULT STDMETHODCALLTYPE get_Data_Path(BSTR* folder) override;
    HRESULT STDMETHODCALLTYPE get_Location(BSTR* computer) override;

private:
    template <class Body>
    HRESULT guarded(Body&& body) noexcept;
    HRESULT getText(Field field, BSTR* text) noexcept;
    HRESULT putText(Field field, BSTR text) noexcept;
    HRESULT getMoney(Field field, CURRENCY* amount) noexcept;
    HRESULT putMoney(Field field, CURRENCY amount) noexcept;
    HRESULT answerSecret(DISPID member, VARIANT* result) noexcept;
    HRESULT run(Operation operation, BSTR argument, VARIANT_BOOL* approved) noexcept;

    ChargeService& service() noexcept { return till_->service; }

    std::shared_ptr<Till> till_;
};

} // namespace tollvane::charge
