// The start of the program: what is created, in which order, and what a start leaves out.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

class Start : public TillTest {
protected:
    std::vector<std::string> createdIds() const {
        std::vector<std::string> ids;
        for (const auto& creation : till.desktop.automation.created) {
            ids.push_back(creation.progId);
        }
        return ids;
    }
};

TEST_F(Start, ShowsTheTransactionForm) {
    till.start();

    ASSERT_TRUE(till.isOpen());
    EXPECT_EQ(till.form().caption(), "Credit Card Charge/Credit");
    EXPECT_EQ(till.boxes(), std::vector<Message>());
}

TEST_F(Start, CreatesTheComponentsInTheirOrder) {
    till.start();

    EXPECT_EQ(createdIds(),
              (std::vector<std::string>{"prjHabitat.clsHabitatI", "dcZenda32.dcclsZenda32",
                                        "ZendaSwiftill.Tollvane"}));
}

TEST_F(Start, TakesItsStepsInTheirOrder) {
    till.desktop.program.arguments = "/till 3";

    till.start();

    const std::vector<std::string> expected{
        "environment.INIT(\"/till 3\")",
        "environment.DCServer",
        "environment.Options",
        "Set options.DCObject = object",
        "environment.SafeCreateUIObj(12)",
        "login.Login()",
        "environment.HasSecurity(&4)",
        "environment.CurrentUser",
        "user.Item",
        "person.First",
    };
    std::vector<std::string> calls = till.desktop.record.texts();
    ASSERT_GE(calls.size(), expected.size());
    calls.resize(expected.size());
    EXPECT_EQ(calls, expected);
}

TEST_F(Start, SecondInstanceShowsOnlyThatItIsRunningAndCreatesNoComponent) {
    till.desktop.program.otherInstance = true;

    till.start();

    EXPECT_EQ(till.boxes(), (std::vector<Message>{information("Application Is Running",
                                                              "Tollvane is already running.")}));
    EXPECT_TRUE(till.desktop.automation.created.empty());
    EXPECT_TRUE(till.desktop.record.calls().empty());
    EXPECT_TRUE(till.desktop.registry.calls().empty());
    EXPECT_FALSE(till.isOpen());
}

TEST_F(Start, AsksForAnotherInstanceOnceBecauseAskingClaimsThePlace) {
    till.start();
    EXPECT_EQ(till.desktop.program.askedForInstance, 1);
}

TEST_F(Start, EmptyCommandLineLeavesInitUncalled) {
    till.desktop.program.arguments = "";

    till.start();

    EXPECT_FALSE(till.desktop.environment.commandLine.has_value());
    EXPECT_TRUE(till.isOpen());
}

TEST_F(Start, CommandLineOfOneBlankIsHandedToInit) {
    till.desktop.program.arguments = " ";

    till.start();

    EXPECT_EQ(till.desktop.environment.commandLine, " ");
}

TEST_F(Start, CommandLineIsHandedToInitWhole) {
    till.desktop.program.arguments = "/data \"c:\\my data\"  /u ada ";

    till.start();

    EXPECT_EQ(till.desktop.environment.commandLine, "/data \"c:\\my data\"  /u ada ");
}

struct OperatorName {
    const char* what;
    const char* first;
    const char* last;
    const char* logged;
};

void PrintTo(const OperatorName& name, std::ostream* out) {
    *out << name.what;
}

class StartLogsOperator : public TillTest, public ::testing::WithParamInterface<OperatorName> {};

TEST_P(StartLogsOperator, TellsTheChargeComponentWhoIsSignedIn) {
    till.desktop.environment.first = GetParam().first;
    till.desktop.environment.last = GetParam().last;

    till.start();

    EXPECT_EQ(till.desktop.charge.loggedUsers, (std::vector<std::string>{GetParam().logged}));
    EXPECT_EQ(till.desktop.record.texts("charge.LogLoggedInUser"),
              (std::vector<std::string>{"charge.LogLoggedInUser(&\"" +
                                        std::string(GetParam().logged) + "\")"}))
        << "the name travels by reference";
}

INSTANTIATE_TEST_SUITE_P(
    Names, StartLogsOperator,
    ::testing::Values(OperatorName{"FirstAndLast", "Ada", "Byron", "Ada Byron"},
                      OperatorName{"FirstNameIsTrimmed", "  Ada ", "Byron", "Ada Byron"},
                      OperatorName{"LastNameIsNotTrimmed", "Ada", " Byron ", "Ada  Byron "},
                      OperatorName{"NoNamesLeaveTheBlank", "", "", " "}),
    [](const auto& row) { return std::string(row.param.what); });

} // namespace
} // namespace tollvane::test
