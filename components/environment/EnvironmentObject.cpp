#include "components/environment/EnvironmentObject.h"

#include "components/common/ComFailure.h"
#include "components/environment/HostDataStart.h"
#include "components/environment/LoginObject.h"
#include "components/environment/PaymentComparison.h"
#include "components/environment/UserObjects.h"
#include "components/environment/dialogs/frmLogin.h"

namespace tollvane::environment {

namespace {

constexpr LONG kLogin = 12;

// A number given by value or by reference.
LONG wholeNumber(VARIANT& value) {
    com::Variant plain;
    com::check(VariantCopyInd(plain.put(), &value));
    com::Variant number;
    com::check(VariantChangeType(number.put(), const_cast<VARIANT*>(&plain.get()), 0, VT_I4));
    return V_I4(&number.get());
}

} // namespace

HRESULT EnvironmentObject::INIT(BSTR commandLine) {
    return com::guarded(interfaceId(), kSource, [&] {
        try {
            state_->setCommandLine(parseCommandLine(std::wstring(com::view(commandLine))));
        } catch (const CommandLineError& error) {
            raise(Failure::badCommandLine, error.what());
        }
    });
}

HRESULT EnvironmentObject::get_CurrentUser(IDispatch** user) {
    return com::guarded(interfaceId(), kSource,
                        [&] { giveObject<CurrentUserObject>(user, state_); });
}

HRESULT EnvironmentObject::get_DCServer(BSTR* computer) {
    return com::guarded(interfaceId(), kSource, [&] {
        const std::wstring name = state_->dcServer();
        // Whoever asks is about to connect, and then to have the operator sign in.
        if (name.empty())
            startHostDataServer([this] { frmLogin(*state_).prepare(); });
        give(computer, name);
    });
}

HRESULT EnvironmentObject::get_Options(IDispatch** options) {
    return com::guarded(interfaceId(), kSource,
                        [&] { giveObject<OptionsObject>(options, state_); });
}

HRESULT EnvironmentObject::SafeCreateUIObj(LONG kind, IDispatch** object) {
    return com::guarded(interfaceId(), kSource, [&] {
        if (kind != kLogin)
            raise(Failure::unknownObjectKind,
                  "The environment has no object of the kind " + std::to_string(kind) + ".");
        giveObject<LoginObject>(object, state_);
    });
}

HRESULT EnvironmentObject::HasSecurity(VARIANT number, VARIANT_BOOL* held) {
    return com::guarded(interfaceId(), kSource,
                        [&] { com::give(held, state_->hasPrivilege(wholeNumber(number))); });
}

HRESULT EnvironmentObject::SafeCreateObj(LONG kind, IDispatch** object) {
    return com::guarded(interfaceId(), kSource, [&] {
        give(object, state_->hostData().createObject(kind, state_->session().token));
    });
}

HRESULT EnvironmentObject::get_Data_Path(BSTR* path) {
    return com::guarded(interfaceId(), kSource, [&] { give(path, state_->dataPath()); });
}

HRESULT EnvironmentObject::get_Location(BSTR* location) {
    return com::guarded(interfaceId(), kSource, [&] { give(location, state_->location()); });
}

HRESULT EnvironmentObject::get_MissingPayments(BSTR* list) {
    return com::guarded(interfaceId(), kSource, [&] {
        std::wstring text;
        for (const MissingPayment& each : findMissingPayments(*state_))
            text += each.time + L"  " + each.type + L"  " + moneyText(each.amount) +
                    (each.lastFour.empty() ? L"" : L"  ****" + each.lastFour) + L"  " +
                    each.transaction + L"\r\n";
        give(list, text);
    });
}

HRESULT EnvironmentObject::RecordMissingPayments(LONG* count) {
    return com::guarded(interfaceId(), kSource, [&] {
        com::give(count, 0);
        std::int32_t recorded = 0;
        for (const MissingPayment& each : findMissingPayments(*state_))
            recorded += recordPayment(*state_, each) ? 1 : 0;
        com::give(count, recorded);
    });
}

} // namespace tollvane::environment
