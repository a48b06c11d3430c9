#include "components/hostdata/win/HostDataObject.h"

#include "components/hostdata/win/OperatorObjects.h"
#include "components/hostdata/win/PaymentObjects.h"
#include "components/hostdata/win/Services.h"
#include "components/hostdata/win/SettingsWindow.h"

namespace tollvane::hostdata {

namespace {

constexpr LONG kPaymentRecord = 17;

void requireKnownKind(LONG kind) {
    if (kind != kPaymentRecord)
        throw HostDataError(Failure::unknownKind, "The host data server has no data object of "
                                                  "the kind " +
                                                      std::to_string(kind) + ".");
}

OperatorService& operators() {
    return services().operators;
}

} // namespace

HRESULT HostDataObject::SafeCreateObj(LONG kind, IDispatch** object) {
    return serve([&] {
        requireKnownKind(kind);
        giveObject<PaymentRecordObject>(object, signedInOperator());
    });
}

std::string HostDataObject::signedInOperator() {
    const std::lock_guard lock(mutex_);
    if (token_.empty())
        return {};
    try {
        return operators().signedIn(token_).userName;
    } catch (const HostDataError&) {
        // A payment is recorded all the same when the operator's session has ended meanwhile.
        return {};
    }
}

HRESULT HostDataObject::CreateDataObject(LONG kind, BSTR token, IDispatch** object) {
    return serve([&] {
        requireKnownKind(kind);
        giveObject<PaymentRecordObject>(object, operators().signedIn(utf8(token)).userName);
    });
}

HRESULT HostDataObject::get_Data_Path(BSTR* path) {
    return serve([&] { give(path, folderOf(services().settings.storePath)); });
}

HRESULT HostDataObject::get_Location(BSTR* location) {
    return serve([&] { give(location, services().settings.location); });
}

HRESULT HostDataObject::get_OperatorCount(LONG* count) {
    return serve([&] { com::give(count, static_cast<std::int32_t>(operators().count())); });
}

HRESULT HostDataObject::CreateFirstOperator(BSTR first, BSTR last, BSTR userName, BSTR password,
                                            LONG* id) {
    return serve([&] {
        const Secret secret = takeSecret(password);
        const OperatorData data{utf8(first), utf8(last), utf8(userName)};
        com::give(id, static_cast<std::int32_t>(operators().createFirst(data, secret)));
    });
}

HRESULT HostDataObject::SignIn(BSTR userName, BSTR password, IDispatch** answer) {
    return serve([&] {
        const Secret secret = takeSecret(password);
        const SignInAnswer outcome = operators().signIn(utf8(userName), secret);
        if (!outcome.token.empty()) {
            const std::lock_guard lock(mutex_);
            token_ = outcome.token;
        }
        giveObject<SignInAnswerObject>(answer, outcome);
    });
}

HRESULT HostDataObject::SignOut(BSTR token) {
    return serve([&] {
        operators().signOut(utf8(token));
        const std::lock_guard lock(mutex_);
        if (token_ == utf8(token))
            token_.clear();
    });
}

HRESULT HostDataObject::HasPrivilege(BSTR token, LONG number, VARIANT_BOOL* held) {
    return serve([&] {
        com::give(held, operators().hasPrivilege(utf8(token), static_cast<std::int32_t>(number)));
    });
}

HRESULT HostDataObject::ChangePassword(BSTR token, BSTR oldPassword, BSTR newPassword) {
    return serve([&] {
        const Secret before = takeSecret(oldPassword);
        const Secret after = takeSecret(newPassword);
        operators().changePassword(utf8(token), before, after);
    });
}

HRESULT HostDataObject::Operators(BSTR token, IDispatch** out) {
    return serve([&] { giveObject<OperatorsObject>(out, operators().list(utf8(token))); });
}

HRESULT HostDataObject::AddOperator(BSTR token, BSTR first, BSTR last, BSTR userName, BSTR password,
                                    LONG* id) {
    return serve([&] {
        const Secret secret = takeSecret(password);
        const OperatorData data{utf8(first), utf8(last), utf8(userName)};
        com::give(id, static_cast<std::int32_t>(operators().add(utf8(token), data, secret)));
    });
}

HRESULT HostDataObject::SetOperatorEnabled(BSTR token, LONG id, VARIANT_BOOL enabled) {
    return serve([&] { operators().setEnabled(utf8(token), id, enabled != VARIANT_FALSE); });
}

HRESULT HostDataObject::SetPrivilege(BSTR token, LONG id, LONG number, VARIANT_BOOL granted) {
    return serve([&] {
        operators().setPrivilege(utf8(token), id, static_cast<std::int32_t>(number),
                                 granted != VARIANT_FALSE);
    });
}

HRESULT HostDataObject::ResetPassword(BSTR token, LONG id, BSTR password) {
    return serve([&] {
        const Secret secret = takeSecret(password);
        operators().resetPassword(utf8(token), id, secret);
    });
}

HRESULT HostDataObject::StoredPayments(LONG days, BSTR* list) {
    return serve([&] { give(list, storedPayments(services().store, services().clock, days)); });
}

HRESULT HostDataObject::StorePayment(VARIANT names, VARIANT values, LONG* id) {
    return serve([&] {
        com::give(id, 0); // so that nothing is stored for one who cannot hear of it
        com::give(id, static_cast<std::int32_t>(storePayment(signedInOperator(), names, values)));
    });
}

HRESULT HostDataObject::ConfigureSettings() {
    return serve([] { showSettings(services().settings.storePath); });
}

} // namespace tollvane::hostdata
