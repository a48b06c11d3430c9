#include "components/environment/dialogs/frmResetPassword.h"

#include "components/common/ComFailure.h"
#include "components/environment/dialogs/NewPasswordBoxes.h"

namespace tollvane::environment {

namespace {

using com::DialogItem;

enum Id { lblOperator = 100, txtPassword, txtPasswordAgain, lblPasswordRule };

const com::DialogControl controls[] = {
    {DialogItem::Note, lblOperator, L"lblOperator", L"", 7, 7, 216, 16},
    {DialogItem::Label, -1, L"", L"New &password:", 7, 29, 66, 8},
    {DialogItem::PasswordBox, txtPassword, L"txtPassword", L"", 76, 27, 147, 13, 128},
    {DialogItem::Label, -1, L"", L"Password &again:", 7, 47, 66, 8},
    {DialogItem::PasswordBox, txtPasswordAgain, L"txtPasswordAgain", L"", 76, 45, 147, 13, 128},
    {DialogItem::Note, lblPasswordRule, L"lblPasswordRule",
     L"The password has at least 8 characters.", 76, 62, 147, 8},
    {DialogItem::DefaultButton, IDOK, L"cmdOK", L"OK", 119, 83, 50, 14},
    {DialogItem::CancelButton, IDCANCEL, L"cmdCancel", L"Cancel", 173, 83, 50, 14},
};

const com::DialogLayout layout{L"frmResetPassword", L"Reset Password", 230, 104, controls};

} // namespace

frmResetPassword::frmResetPassword(const HostDataClient& server, const std::wstring& token,
                                   const OperatorRow& who)
    : EnvironmentDialog(layout), server_(server), token_(token), who_(who) {}

void frmResetPassword::onShow() {
    setBoxText(lblOperator, L"Enter a new password for " + who_.first + L" " + who_.last + L" (" +
                                who_.userName + L").");
}

bool frmResetPassword::onOk() {
    if (GetWindowTextLengthW(item(txtPassword)) == 0) {
        complain(kPasswordMissing, txtPassword);
        return false;
    }
    const auto password = takeNewPassword(item(txtPassword), item(txtPasswordAgain));
    if (!password) {
        complain(kPasswordsDiffer, txtPassword);
        return false;
    }
    try {
        const WaitPointer wait;
        server_.resetPassword(token_, who_.id, *password);
        return true;
    } catch (const com::ComponentError& error) {
        complain(error.description(), txtPassword);
        return false;
    }
}

} // namespace tollvane::environment
