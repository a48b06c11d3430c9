#include "components/environment/dialogs/frmFirstOperator.h"

namespace tollvane::environment {

namespace {

using com::DialogItem;

const com::DialogControl controls[] = {
    {DialogItem::Note, OperatorEntry::lblIntroduction, L"lblIntroduction",
     L"No operator has been set up yet. Enter the first one, who may take card payments and "
     L"manage the other operators.",
     7, 7, 216, 26},
    {DialogItem::Label, -1, L"", L"&First name:", 7, 42, 66, 8},
    {DialogItem::TextBox, OperatorEntry::txtFirstName, L"txtFirstName", L"", 76, 40, 147, 13, 40},
    {DialogItem::Label, -1, L"", L"&Last name:", 7, 60, 66, 8},
    {DialogItem::TextBox, OperatorEntry::txtLastName, L"txtLastName", L"", 76, 58, 147, 13, 40},
    {DialogItem::Label, -1, L"", L"&User name:", 7, 78, 66, 8},
    {DialogItem::TextBox, OperatorEntry::txtUserName, L"txtUserName", L"", 76, 76, 147, 13, 40},
    {DialogItem::Label, -1, L"", L"&Password:", 7, 96, 66, 8},
    {DialogItem::PasswordBox, OperatorEntry::txtPassword, L"txtPassword", L"", 76, 94, 147, 13,
     128},
    {DialogItem::Label, -1, L"", L"Password &again:", 7, 114, 66, 8},
    {DialogItem::PasswordBox, OperatorEntry::txtPasswordAgain, L"txtPasswordAgain", L"", 76, 112,
     147, 13, 128},
    {DialogItem::Note, OperatorEntry::lblPasswordRule, L"lblPasswordRule",
     L"The password has at least 8 characters.", 76, 129, 147, 8},
    {DialogItem::DefaultButton, IDOK, L"cmdOK", L"OK", 119, 150, 50, 14},
    {DialogItem::CancelButton, IDCANCEL, L"cmdCancel", L"Cancel", 173, 150, 50, 14},
};

const com::DialogLayout layout{L"frmFirstOperator", L"First Operator", 230, 171, controls};

} // namespace

frmFirstOperator::frmFirstOperator(EnvironmentState& state)
    : OperatorEntry(layout), state_(state) {}

void frmFirstOperator::onShow() {
    comeToFront();
    setBoxText(txtUserName, state_.loginName());
}

void frmFirstOperator::store(const NewOperator& data, const Password& password) {
    state_.hostData().createFirst(data, password);
    (void)state_.signIn(data.userName, password);
}

} // namespace tollvane::environment
