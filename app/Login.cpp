#include "app/Login.h"

#include "platform/Error.h"

#include <cstdint>
#include <string>

namespace tollvane {

namespace {

constexpr std::int32_t kLoginObject = 12;
constexpr std::int32_t kAcceptCardPayments = 4;

constexpr long kNotLoggedIn = errornumber::applicationBase + 2000;
constexpr long kNoPrivilege = errornumber::applicationBase + 2001;

} // namespace

bool Authorized(Automation& automation, Environment& environment) {
    return trailed("Authorized", [&] {
        environment.setDCObject(
            automation.create(std::string(kHostDataProgId), environment.DCServer()));
        const ObjectRef login = environment.SafeCreateUIObj(kLoginObject);
        if (!asBool(login->call("Login"))) {
            throw Error(kNotLoggedIn, "Security", "You must login to take a credit card payment.");
        }
        if (!environment.HasSecurity(kAcceptCardPayments)) {
            throw Error(kNoPrivilege, "Security",
                        "You do not have sufficient privilge to accept credit card payments.");
        }
        return true;
    });
}

} // namespace tollvane
