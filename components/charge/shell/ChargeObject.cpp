#include "components/charge/shell/ChargeObject.h"

#include "components/charge/core/SimulatedProcessor.h"
#include "components/charge/shell/FieldObject.h"
#include "components/charge/shell/FieldTexts.h"
#include "components/charge/shell/GatewayDialog.h"
#include "components/charge/shell/SettingsDialog.h"
#include "components/common/ComFailure.h"

#include <utility>

namespace tollvane::charge {

namespace {

std::string textOf(const FilePath& path) {
    return com::narrow(std::wstring_view(path.native()));
}

// "C:\Log" for "C:\Log\": callers put the backslash themselves.
std::string folderText(const FilePath& folder) {
    std::string text = textOf(folder);
    while (text.size() > 1 && (text.back() == '\\' || text.back() == '/'))
        text.pop_back();
    return text;
}

// Member numbers in the type library.
constexpr DISPID logLoggedInUserId = 9;
constexpr DISPID cardNumberId = 21;
constexpr DISPID track1Id = 34;

bool isTextInVariable(const VARIANT& argument) {
    return V_VT(&argument) == (VT_BYREF | VT_VARIANT) && V_VARIANTREF(&argument) &&
           V_VT(V_VARIANTREF(&argument)) == VT_BSTR;
}

} // namespace

Till::Till()
    : service({files, clock, settings, newOperationKey, [this](const Settings& current) {
                   return std::make_unique<SimulatedProcessor>(files, current.dataFolder);
               }}) {}

ChargeObject::ChargeObject() : DispatchObject(IID_ITollvane), till_(std::make_shared<Till>()) {
    service().settleOpenOperations();
}

template <class Body>
HRESULT ChargeObject::guarded(Body&& body) noexcept {
    return com::guarded(interfaceId(), componentSource, std::forward<Body>(body));
}

HRESULT ChargeObject::Invoke(DISPID member, REFIID iid, LCID locale, WORD flags,
                             DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                             UINT* badArgument) {
    if ((member == cardNumberId || member == track1Id) &&
        com::asksForValue(flags, arguments, result) && SUCCEEDED(answerSecret(member, result)))
        return S_OK;
    if (member != logLoggedInUserId || !arguments || arguments->cArgs != 1 ||
        !isTextInVariable(arguments->rgvarg[0]))
        return DispatchObject::Invoke(member, iid, locale, flags, arguments, result, exception,
                                      badArgument);
    VARIANT text;
    VariantInit(&text);
    V_VT(&text) = VT_BYREF | VT_BSTR;
    V_BSTRREF(&text) = &V_BSTR(V_VARIANTREF(&arguments->rgvarg[0]));
    DISPPARAMS unwrapped = *arguments;
    unwrapped.rgvarg = &text;
    return DispatchObject::Invoke(member, iid, locale, flags, &unwrapped, result, exception,
                                  badArgument);
}

HRESULT ChargeObject::answerSecret(DISPID member, VARIANT* result) noexcept {
    return com::answerText(result, [&](BSTR* text) {
        return member == cardNumberId ? get_CardNumber(text) : get_Track1(text);
    });
}

HRESULT ChargeObject::ClearFields() {
    return guarded([&] { service().clearFields(); });
}

HRESULT ChargeObject::TransactionField(BSTR name, ITransactionField** field) {
    return guarded([&] {
        if (!field)
            com::throwFailure(E_POINTER);
        *field = nullptr;
        const FieldDefinition& definition = fieldByName(secretFrom(name).view());
        // The field object keeps the whole till alive, not only its service.
        const std::shared_ptr<ChargeService> shared(till_, &till_->service);
        *field = com::makeObject<FieldObject>(shared, definition).release();
    });
}

HRESULT ChargeObject::run(Operation operation, BSTR argument, VARIANT_BOOL* approved) noexcept {
    return guarded([&] {
        com::give(approved, false);
        const SecretText text = secretFrom(argument);
        com::give(approved, service().run(operation, text.view()));
    });
}

HRESULT ChargeObject::AuthorizeAndCapture(VARIANT_BOOL* approved) {
    return run(Operation::Charge, nullptr, approved);
}

HRESULT ChargeObject::CaptureVoiceAuth(BSTR code, VARIANT_BOOL* approved) {
    return run(Operation::VoiceCapture, code, approved);
}

HRESULT ChargeObject::Credit(BSTR id, VARIANT_BOOL* approved) {
    return run(Operation::Refund, id, approved);
}

HRESULT ChargeObject::Void(BSTR id, VARIANT_BOOL* approved) {
    return run(Operation::Void, id, approved);
}

HRESULT ChargeObject::ConfigureGateway() {
    return guarded([&] {
        GatewayDialog dialog(till_->settings.read());
        if (dialog.run(GetActiveWindow()))
            till_->settings.writeGateway(dialog.settings());
    });
}

HRESULT ChargeObject::ConfigureSettings() {
    return guarded([&] {
        SettingsDialog dialog(till_->settings.read());
        if (dialog.run(GetActiveWindow()))
            till_->settings.writeFolders(dialog.settings());
    });
}

HRESULT ChargeObject::LogLoggedInUser(BSTR* operatorName) {
    return guarded([&] {
        if (!operatorName)
            com::throwFailure(E_POINTER);
        service().signIn(com::narrow(*operatorName));
    });
}

HRESULT ChargeObject::Free() {
    return guarded([&] { service().clearFields(); });
}

HRESULT ChargeObject::ApprovedPayments(LONG days, BSTR* list) {
    return guarded([&] { com::give(list, service().approvedPayments(static_cast<int>(days))); });
}

HRESULT ChargeObject::get_ResponseCode(LONG* code) {
    return guarded([&] { com::give(code, service().answer().responseCode); });
}

HRESULT ChargeObject::get_ResponseReasonCode(LONG* code) {
    return guarded([&] { com::give(code, service().answer().reasonCode); });
}

HRESULT ChargeObject::get_ResponseSubCode(LONG* code) {
    return guarded([&] { com::give(code, service().answer().subCode); });
}

HRESULT ChargeObject::get_ResponseReasonText(BSTR* text) {
    return guarded([&] { com::give(text, service().answer().reasonText); });
}

HRESULT ChargeObject::get_ApprovalCode(BSTR* text) {
    return guarded([&] { com::give(text, service().answer().approvalCode); });
}

HRESULT ChargeObject::get_TransactionID(BSTR* text) {
    return guarded([&] { com::give(text, service().answer().transactionId); });
}

HRESULT ChargeObject::get_TestMode(VARIANT_BOOL* testMode) {
    return guarded([&] { com::give(testMode, till_->settings.read().testMode); });
}

HRESULT ChargeObject::get_LogFilePath(BSTR* folder) {
    return guarded([&] { com::give(folder, folderText(till_->settings.read().logFolder)); });
}

HRESULT ChargeObject::get_LogFileName(BSTR* name) {
    return guarded([&] { com::give(name, textOf(till_->settings.read().logFileName)); });
}

HRESULT ChargeObject::get_Data_Path(BSTR* folder) {
    return guarded([&] { com::give(folder, folderText(till_->settings.read().dataFolder)); });
}

HRESULT ChargeObject::get_Location(BSTR* computer) {
    return guarded([&] { com::give(computer, computerName()); });
}

} // namespace tollvane::charge
