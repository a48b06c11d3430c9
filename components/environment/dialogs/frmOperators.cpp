#include "components/environment/dialogs/frmOperators.h"

#include "components/common/ComFailure.h"
#include "components/environment/dialogs/frmOperator.h"
#include "components/environment/dialogs/frmResetPassword.h"

#include <algorithm>

namespace tollvane::environment {

namespace {

using com::DialogItem;

enum Id {
    lstOperators = 100,
    chkEnabled,
    chkAcceptPayments,
    chkManageOperators,
    cmdResetPassword,
    cmdAdd
};

const com::DialogControl controls[] = {
    {DialogItem::Label, -1, L"", L"&Operators:", 7, 7, 130, 8},
    {DialogItem::ListBox, lstOperators, L"lstOperators", L"", 7, 18, 140, 112},
    {DialogItem::Group, -1, L"", L"Selected operator", 155, 14, 118, 80},
    {DialogItem::CheckBox, chkEnabled, L"chkEnabled", L"May &sign in", 163, 27, 104, 10},
    {DialogItem::CheckBox, chkAcceptPayments, L"chkAcceptPayments", L"May accept &card payments",
     163, 41, 104, 10},
    {DialogItem::CheckBox, chkManageOperators, L"chkManageOperators", L"May &manage operators", 163,
     55, 104, 10},
    {DialogItem::Button, cmdResetPassword, L"cmdResetPassword", L"&Reset Password...", 163, 72, 102,
     14},
    {DialogItem::Button, cmdAdd, L"cmdAdd", L"&Add Operator...", 155, 102, 118, 14},
    {DialogItem::DefaultButton, IDOK, L"cmdClose", L"Close", 223, 140, 50, 14},
};

const com::DialogLayout layout{L"frmOperators", L"Operators", 280, 161, controls};

std::wstring rowText(const OperatorRow& row) {
    return row.last + L", " + row.first + L" (" + row.userName + L")" +
           (row.enabled ? L"" : L" - disabled");
}

} // namespace

frmOperators::frmOperators(const HostDataClient& server, const std::wstring& token)
    : EnvironmentDialog(layout), server_(server), token_(token) {}

void frmOperators::onShow() {
    refresh(0);
}

void frmOperators::refresh(LONG selectedId) {
    operators_ = server_.operators(token_);
    const HWND list = item(lstOperators);
    SendMessageW(list, LB_RESETCONTENT, 0, 0);
    for (const OperatorRow& row : operators_)
        SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(rowText(row).c_str()));
    const auto found = std::find_if(operators_.begin(), operators_.end(),
                                    [&](const auto& row) { return row.id == selectedId; });
    const auto place = found == operators_.end() ? 0 : found - operators_.begin();
    SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(place), 0);
    showSelected();
}

const OperatorRow* frmOperators::selected() const {
    const auto place = SendMessageW(item(lstOperators), LB_GETCURSEL, 0, 0);
    if (place < 0 || static_cast<std::size_t>(place) >= operators_.size())
        return nullptr;
    return &operators_[static_cast<std::size_t>(place)];
}

void frmOperators::showSelected() {
    const OperatorRow* row = selected();
    for (const int id : {chkEnabled, chkAcceptPayments, chkManageOperators, cmdResetPassword})
        setEnabled(id, row != nullptr);
    setChecked(chkEnabled, row != nullptr && row->enabled);
    setChecked(chkAcceptPayments, row != nullptr && row->acceptsPayments);
    setChecked(chkManageOperators, row != nullptr && row->managesOperators);
}

void frmOperators::onCommand(int id, int notification) {
    if (id == lstOperators && notification == LBN_SELCHANGE)
        showSelected();
    if (id == lstOperators || notification != BN_CLICKED)
        return;
    if (id == cmdAdd)
        add();
    else if (id == cmdResetPassword)
        resetPassword();
    else if (id == chkEnabled || id == chkAcceptPayments || id == chkManageOperators)
        storeCheckBox(id);
}

void frmOperators::storeCheckBox(int id) {
    const OperatorRow* row = selected();
    if (row == nullptr)
        return;
    const LONG who = row->id;
    try {
        if (id == chkEnabled)
            server_.setEnabled(token_, who, checked(id));
        else if (id == chkAcceptPayments)
            server_.setPrivilege(token_, who, privilege::acceptCardPayments, checked(id));
        else
            server_.setPrivilege(token_, who, privilege::manageOperators, checked(id));
    } catch (const com::ComponentError& error) {
        complain(error.description(), id);
    }
    try {
        refresh(who);
    } catch (const com::ComponentError& error) {
        // The signed-in operator has just given up the privilege: nothing more can be done here.
        complain(error.description());
        close(false);
    }
}

void frmOperators::add() {
    frmOperator dialog(server_, token_);
    if (dialog.run(window()))
        refresh(dialog.id());
}

void frmOperators::resetPassword() {
    if (const OperatorRow* row = selected()) {
        const OperatorRow who = *row;
        frmResetPassword(server_, token_, who).run(window());
    }
}

} // namespace tollvane::environment
