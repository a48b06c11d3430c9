#include "components/environment/dialogs/NewPasswordBoxes.h"

namespace tollvane::environment {

std::optional<Password> takeNewPassword(HWND box, HWND againBox) {
    Password password = Password::typedInto(box);
    const Password again = Password::typedInto(againBox);
    wipeBox(box);
    wipeBox(againBox);
    if (!password.same(again))
        return std::nullopt;
    return password;
}

} // namespace tollvane::environment
