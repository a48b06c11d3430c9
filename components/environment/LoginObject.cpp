#include "components/environment/LoginObject.h"

#include "components/common/ComFailure.h"
#include "components/environment/PaymentComparison.h"
#include "components/environment/dialogs/frmFirstOperator.h"
#include "components/environment/dialogs/frmLogin.h"

namespace tollvane::environment {

HRESULT LoginObject::Login(VARIANT_BOOL* signedIn) {
    return com::guarded(interfaceId(), kSource, [&] {
        const bool wasSignedIn = !state_->session().token.empty();
        bool done = wasSignedIn;
        const HWND owner = GetActiveWindow();
        if (!done && !state_->hostData().hasOperators())
            done = frmFirstOperator(*state_).run(owner);
        // Also when another till was quicker to create the first operator.
        if (!done && state_->hostData().hasOperators())
            done = frmLogin(*state_).run(owner);
        done = done && !state_->session().token.empty();
        if (done && !wasSignedIn)
            offerMissingPayments(*state_, owner);
        com::give(signedIn, done);
    });
}

HRESULT LoginObject::LoginAs(BSTR userName, BSTR password, VARIANT_BOOL* signedIn) {
    return com::guarded(interfaceId(), kSource, [&] {
        const std::wstring name(com::view(userName));
        com::give(signedIn, state_->signIn(name, Password(password)).succeeded);
    });
}

HRESULT LoginObject::Logout() {
    return com::guarded(interfaceId(), kSource, [&] { state_->signOut(); });
}

} // namespace tollvane::environment
