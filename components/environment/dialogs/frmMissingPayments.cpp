#include "components/environment/dialogs/frmMissingPayments.h"

#include "components/common/ComFailure.h"

#include <array>

namespace tollvane::environment {

namespace {

using com::DialogItem;

enum Id { lstPayments = 100 };

const com::DialogControl controls[] = {
    {DialogItem::Note, -1, L"lblMessage",
     L"The card processor approved these payments, but the shop's payment records do not hold "
     L"them. They may have been interrupted. Record them now?",
     7, 7, 286, 18},
    {DialogItem::Label, -1, L"", L"&Payments:", 7, 31, 286, 8},
    {DialogItem::TableList, lstPayments, L"lstPayments", L"", 7, 42, 286, 74},
    {DialogItem::DefaultButton, IDOK, L"cmdRecord", L"&Record", 189, 124, 50, 14},
    {DialogItem::CancelButton, IDCANCEL, L"cmdLater", L"&Later", 243, 124, 50, 14},
};

const com::DialogLayout layout{L"frmMissingPayments", L"Payments Not Recorded", 300, 145, controls};

// Where the columns after the time begin, in dialog units: type, amount, card, transaction.
const std::array<int, 4> columns{82, 118, 170, 214};

std::wstring typeText(const std::wstring& type) {
    if (type == L"REFUND")
        return L"Refund";
    return type == L"VOID" ? L"Void" : L"Charge";
}

std::wstring rowText(const MissingPayment& payment) {
    return payment.time + L"\t" + typeText(payment.type) + L"\t" + moneyText(payment.amount) +
           L"\t" + (payment.lastFour.empty() ? L"" : L"****" + payment.lastFour) + L"\t" +
           payment.transaction;
}

} // namespace

frmMissingPayments::frmMissingPayments(const EnvironmentState& state,
                                       std::vector<MissingPayment> missing)
    : EnvironmentDialog(layout), state_(state), missing_(std::move(missing)) {}

void frmMissingPayments::onShow() {
    comeToFront();
    showList();
    focus(IDOK);
}

void frmMissingPayments::showList() {
    const HWND list = item(lstPayments);
    SendMessageW(list, LB_RESETCONTENT, 0, 0);
    SendMessageW(list, LB_SETTABSTOPS, columns.size(), reinterpret_cast<LPARAM>(columns.data()));
    for (const MissingPayment& each : missing_)
        SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(rowText(each).c_str()));
    SendMessageW(list, LB_SETCURSEL, 0, 0);
}

bool frmMissingPayments::onOk() {
    try {
        const WaitPointer wait;
        while (!missing_.empty()) {
            recordPayment(state_, missing_.front());
            missing_.erase(missing_.begin());
        }
        return true;
    } catch (const com::ComponentError& error) {
        showList();
        complain(error.description(), IDOK);
        return false;
    }
}

} // namespace tollvane::environment
