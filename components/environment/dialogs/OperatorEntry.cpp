#include "components/environment/dialogs/OperatorEntry.h"

#include "components/common/ComFailure.h"
#include "components/environment/dialogs/NewPasswordBoxes.h"

namespace tollvane::environment {

bool OperatorEntry::missing(int id, const char* message) {
    if (boxText(id).find_first_not_of(L" \t") != std::wstring::npos)
        return false;
    complain(message, id);
    return true;
}

bool OperatorEntry::onOk() {
    if (missing(txtFirstName, "Enter the first name.") ||
        missing(txtLastName, "Enter the last name.") ||
        missing(txtUserName, "Enter the user name."))
        return false;
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
        store({boxText(txtFirstName), boxText(txtLastName), boxText(txtUserName)}, *password);
        return true;
    } catch (const com::ComponentError& error) {
        complain(error.description(), txtPassword);
        return false;
    }
}

} // namespace tollvane::environment
