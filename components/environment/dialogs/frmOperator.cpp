#include "components/environment/dialogs/frmOperator.h"

namespace tollvane::environment {

namespace {

using com::DialogItem;

const com::DialogControl controls[] = {
    {DialogItem::Label, -1, L"", L"&First name:", 7, 9, 66, 8},
    {DialogItem::TextBox, OperatorEntry::txtFirstName, L"txtFirstName", L"", 76, 7, 147, 13, 40},
    {DialogItem::Label, -1, L"", L"&Last name:", 7, 27, 66, 8},
    {DialogItem::TextBox, OperatorEntry::txtLastName, L"txtLastName", L"", 76, 25, 147, 13, 40},
    {DialogItem::Label, -1, L"", L"&User name:", 7, 45, 66, 8},
    {DialogItem::TextBox, OperatorEntry::txtUserName, L"txtUserName", L"", 76, 43, 147, 13, 40},
    {DialogItem::Label, -1, L"", L"&Password:", 7, 63, 66, 8},
    {DialogItem::PasswordBox, OperatorEntry::txtPassword, L"txtPassword", L"", 76, 61, 147, 13,
     128},
    {DialogItem::Label, -1, L"", L"Password &again:", 7, 81, 66, 8},
    {DialogItem::PasswordBox, OperatorEntry::txtPasswordAgain, L"txtPasswordAgain", L"", 76, 79,
     147, 13, 128},
    {DialogItem::Note, OperatorEntry::lblPasswordRule, L"lblPasswordRule",
     L"The password has at least 8 characters.", 76, 96, 147, 8},
    {DialogItem::CheckBox, OperatorEntry::chkAcceptPayments, L"chkAcceptPayments",
     L"May accept &card payments", 76, 109, 147, 10},
    {DialogItem::DefaultButton, IDOK, L"cmdOK", L"OK", 119, 130, 50, 14},
    {DialogItem::CancelButton, IDCANCEL, L"cmdCancel", L"Cancel", 173, 130, 50, 14},
};

const com::DialogLayout layout{L"frmOperator", L"Add Operator", 230, 151, controls};

} // namespace

frmOperator::frmOperator(const HostDataClient& server, const std::wstring& token)
    : OperatorEntry(layout), server_(server), token_(token) {}

void frmOperator::store(const NewOperator& data, const Password& password) {
    id_ = server_.add(token_, data, password);
    if (checked(chkAcceptPayments))
        server_.setPrivilege(token_, id_, privilege::acceptCardPayments, true);
}

} // namespace tollvane::environment
