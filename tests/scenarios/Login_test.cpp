// Who may take payments: an operator who is logged in and holds the privilege for it.

#include "app/Login.h"
#include "tests/scenarios/Till.h"

#include <optional>

namespace tollvane::test {
namespace {

const std::string kRefusal = "There was an error loading the application.\r\n\r\n";

class Login : public TillTest {
protected:
    /// Runs the login by itself and returns the error that it raised.
    std::optional<Error> authorizeAlone() {
        Environment environment(till.desktop.environment.object());
        try {
            granted_ = Authorized(till.desktop.automation, environment);
        } catch (const Error& error) {
            return error;
        }
        return std::nullopt;
    }

    bool granted_ = false;
};

TEST_F(Login, CancelledByTheOperatorIsRefusedAndTheProgramDoesNotStart) {
    till.desktop.environment.loggedIn = false;

    till.start();

    EXPECT_EQ(till.boxes(), (std::vector<Message>{information(
                                "", kRefusal + "Error: -2147219504, Authorization error. "
                                               "You must login to take a credit card payment.")}));
    EXPECT_FALSE(till.isOpen());
    EXPECT_TRUE(till.desktop.charge.loggedUsers.empty());
}

TEST_F(Login, OperatorWithoutThePrivilegeIsRefusedAndTheProgramDoesNotStart) {
    till.desktop.environment.privileges.clear();

    till.start();

    EXPECT_EQ(
        till.boxes(),
        (std::vector<Message>{information(
            "", kRefusal + "Error: -2147219503, Authorization error. You do not have sufficient "
                           "privilge to accept credit card payments.")}));
    EXPECT_FALSE(till.isOpen());
}

TEST_F(Login, OtherPrivilegesDoNotHelp) {
    till.desktop.environment.privileges = {1, 2, 3, 5};

    till.start();

    EXPECT_FALSE(till.isOpen());
}

TEST_F(Login, PrivilegeIsAskedOnlyAfterASuccessfulLogin) {
    till.desktop.environment.loggedIn = false;

    till.start();

    EXPECT_EQ(till.desktop.environment.logins, 1);
    EXPECT_TRUE(till.desktop.environment.privilegesAsked.empty());
}

TEST_F(Login, PrivilegeFourIsAskedOnceAfterTheLogin) {
    till.start();

    EXPECT_EQ(till.desktop.environment.privilegesAsked, (std::vector<std::int32_t>{4}));
    EXPECT_EQ(till.desktop.environment.logins, 1);
    EXPECT_EQ(till.desktop.environment.uiKindsMade, (std::vector<std::int32_t>{12}));
}

TEST_F(Login, CreatesTheHostDataServerOnTheComputerThatTheEnvironmentNames) {
    till.desktop.environment.dcServer = "BACKOFFICE";

    till.start();

    EXPECT_EQ(till.desktop.automation.created.at(1),
              (FakeAutomation::Creation{"dcZenda32.dcclsZenda32", "BACKOFFICE", ""}));
}

TEST_F(Login, CreatesTheHostDataServerHereWhenNoComputerIsNamed) {
    till.desktop.environment.dcServer = "";

    till.start();

    EXPECT_EQ(till.desktop.automation.created.at(1),
              (FakeAutomation::Creation{"dcZenda32.dcclsZenda32", "", ""}));
}

TEST_F(Login, HandsTheHostDataServerToTheEnvironmentBeforeTheOperatorLogsIn) {
    till.start();

    EXPECT_EQ(till.desktop.environment.dcObject, till.desktop.hostData.object());
    const std::vector<std::string> calls = till.desktop.record.texts();
    const auto handed = std::find(calls.begin(), calls.end(), "Set options.DCObject = object");
    const auto login = std::find(calls.begin(), calls.end(), "login.Login()");
    ASSERT_NE(handed, calls.end());
    EXPECT_LT(handed, login);
}

TEST_F(Login, GrantedAnswersTrue) {
    EXPECT_EQ(authorizeAlone(), std::nullopt);
    EXPECT_TRUE(granted_);
}

TEST_F(Login, RefusalsCarryTheirSourceWithTheTrail) {
    till.desktop.environment.loggedIn = false;
    const auto notLoggedIn = authorizeAlone();
    till.desktop.environment.loggedIn = true;
    till.desktop.environment.privileges.clear();
    const auto noPrivilege = authorizeAlone();

    ASSERT_TRUE(notLoggedIn && noPrivilege);
    EXPECT_EQ(notLoggedIn->number(), -2147219504);
    EXPECT_EQ(notLoggedIn->source(), "Security:Authorized");
    EXPECT_EQ(notLoggedIn->description(), "You must login to take a credit card payment.");
    EXPECT_EQ(noPrivilege->number(), -2147219503);
    EXPECT_EQ(noPrivilege->source(), "Security:Authorized");
    EXPECT_EQ(noPrivilege->description(),
              "You do not have sufficient privilge to accept credit card payments.");
}

struct FailingStep {
    const char* what;
    const char* member;
};

void PrintTo(const FailingStep& step, std::ostream* out) {
    *out << step.what;
}

class LoginStep : public Login, public ::testing::WithParamInterface<FailingStep> {};

TEST_P(LoginStep, ThatFailsKeepsItsErrorAndGetsTheTrail) {
    till.desktop.record.failNext(GetParam().member, Error(1234, "Habitat", "Not today."));

    const auto error = authorizeAlone();

    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), 1234);
    EXPECT_EQ(error->source(), "Habitat:Authorized");
    EXPECT_EQ(error->description(), "Not today.");
}

INSTANTIATE_TEST_SUITE_P(Steps, LoginStep,
                         ::testing::Values(FailingStep{"NameOfTheComputer", "environment.DCServer"},
                                           FailingStep{"Options", "environment.Options"},
                                           FailingStep{"HandingOver", "options.DCObject"},
                                           FailingStep{"LoginObject",
                                                       "environment.SafeCreateUIObj"},
                                           FailingStep{"LoginItself", "login.Login"},
                                           FailingStep{"Privilege", "environment.HasSecurity"}),
                         [](const auto& row) { return std::string(row.param.what); });

TEST_F(Login, ServerThatCannotBeCreatedGetsTheTrail) {
    till.desktop.environment.dcServer = "NOWHERE";
    till.desktop.automation.failNext(
        "dcZenda32.dcclsZenda32",
        Error(462, "Automation", "The remote server machine does not exist or is unavailable"));

    const auto error = authorizeAlone();

    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), 462);
    EXPECT_EQ(error->source(), "Automation:Authorized");
}

TEST_F(Login, LoginObjectIsReleasedOnEveryPath) {
    // The fake hands out one shared login object; what the program keeps shows in its count.
    const ObjectRef login =
        asObject(till.desktop.environment.object()->call("SafeCreateUIObj", {{std::int32_t{12}}}));
    const long before = login.use_count();

    authorizeAlone();
    EXPECT_EQ(login.use_count(), before) << "granted";
    till.desktop.environment.loggedIn = false;
    authorizeAlone();
    EXPECT_EQ(login.use_count(), before) << "not logged in";
    till.desktop.environment.loggedIn = true;
    till.desktop.environment.privileges.clear();
    authorizeAlone();
    EXPECT_EQ(login.use_count(), before) << "no privilege";
}

} // namespace
} // namespace tollvane::test
