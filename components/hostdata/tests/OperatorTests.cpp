#include "components/hostdata/operators/OperatorRules.h"
#include "components/hostdata/operators/OperatorTable.h"
#include "components/hostdata/tests/TestSupport.h"

namespace tollvane::hostdata {
namespace {

class OperatorTest : public ::testing::Test {
protected:
    TestFolder folder;
    Server server{folder.file()};
    OperatorService& operators = server.operators;
};

TEST(PasswordHash, OnlyTheSamePasswordMatches) {
    const FakeCryptography cryptography;
    const auto hash = hashPassword(cryptography, secret("counter-one"), 10);
    EXPECT_TRUE(matches(cryptography, hash, secret("counter-one")));
    EXPECT_FALSE(matches(cryptography, hash, secret("counter-On")));
    EXPECT_FALSE(matches(cryptography, hash, secret("")));
}

TEST(PasswordHash, TheSamePasswordIsKeptDifferentlyEachTime) {
    const FakeCryptography cryptography;
    const auto one = hashPassword(cryptography, secret("counter-one"), 10);
    const auto two = hashPassword(cryptography, secret("counter-one"), 10);
    EXPECT_NE(one.salt, two.salt);
    EXPECT_NE(one.hash, two.hash);
}

TEST(PasswordHash, EachPasswordKeepsItsOwnIterationCount) {
    const FakeCryptography cryptography;
    auto hash = hashPassword(cryptography, secret("counter-one"), 7);
    EXPECT_EQ(hash.iterations, 7);
    hash.iterations = 8;
    EXPECT_FALSE(matches(cryptography, hash, secret("counter-one")));
}

TEST(PasswordHash, AnEmptyStoredHashMatchesNothing) {
    const FakeCryptography cryptography;
    EXPECT_FALSE(matches(cryptography, PasswordHash{10, Bytes(16, 0), Bytes()}, secret("")));
}

TEST(Secret, IsOverwrittenWhenWiped) {
    std::string text = "counter-one-is-a-long-password";
    const char* place = text.data();
    wipe(text);
    EXPECT_TRUE(text.empty());
    EXPECT_EQ(std::string_view(place, 7), std::string_view("\0\0\0\0\0\0\0", 7));
}

TEST_F(OperatorTest, TheFirstOperatorHoldsEveryPrivilege) {
    EXPECT_EQ(operators.count(), 0);
    server.createAnna();
    EXPECT_EQ(operators.count(), 1);
    const auto token = server.signInAnna();
    EXPECT_TRUE(operators.hasPrivilege(token, privilege::manageOperators));
    EXPECT_TRUE(operators.hasPrivilege(token, privilege::acceptCardPayments));
    EXPECT_FALSE(operators.hasPrivilege(token, 99));
}

TEST_F(OperatorTest, ThereIsOnlyOneFirstOperator) {
    server.createAnna();
    EXPECT_EQ(failureOf([&] {
                  operators.createFirst({"Eve", "Other", "eve"}, secret("counter-six"));
              }),
              Failure::operatorsExist);
}

TEST_F(OperatorTest, NamesAndPasswordsAreChecked) {
    const auto create = [&](const OperatorData& data, const std::string& password) {
        return failureOf([&] { operators.createFirst(data, secret(password)); });
    };
    EXPECT_EQ(create({" ", "Keller", "anna"}, "counter-one"), Failure::badOperatorData);
    EXPECT_EQ(create({"Anna", "", "anna"}, "counter-one"), Failure::badOperatorData);
    EXPECT_EQ(create({"Anna", "Keller", "\t"}, "counter-one"), Failure::badOperatorData);
    EXPECT_EQ(create({"Anna", "Keller", std::string(41, 'a')}, "counter-one"),
              Failure::badOperatorData);
    EXPECT_EQ(create({"Anna", "Keller", "anna"}, "short12"), Failure::badOperatorData);
    EXPECT_EQ(create({"Anna", "Keller", "annakeller"}, "AnnaKeller"), Failure::badOperatorData);
    EXPECT_EQ(create({"Anna", "Keller", "anna"}, std::string(129, 'x')), Failure::badOperatorData);
    EXPECT_EQ(operators.count(), 0);
}

TEST_F(OperatorTest, TheShortestPasswordIsTaken) {
    operators.createFirst({"Anna", "Reed", "anna"}, secret("eight-88"));
    EXPECT_EQ(operators.signIn("anna", secret("eight-88")).who.firstName, "Anna");
}

TEST_F(OperatorTest, TheLongestNamesAndPasswordsAreTaken) {
    std::string name;
    for (int i = 0; i < 40; ++i)
        name += "\xC3\xA9"; // one letter
    const std::string password(128, 'x');
    operators.createFirst({name, name, name}, secret(password));
    EXPECT_EQ(operators.signIn(name, secret(password)).who.firstName, name);
}

TEST_F(OperatorTest, NamesAreStoredWithoutSurroundingBlanks) {
    operators.createFirst({" Anna ", " Keller", "anna "}, secret("counter-one"));
    const auto who = operators.signIn("Anna", secret("counter-one")).who;
    EXPECT_EQ(who.firstName, "Anna");
    EXPECT_EQ(who.lastName, "Keller");
    EXPECT_EQ(who.userName, "anna");
}

TEST_F(OperatorTest, AWrongNameAndAWrongPasswordGiveTheSameAnswerAfterTheSameWork) {
    server.createAnna();
    const auto before = server.cryptography.derivations.load();
    const auto name = operators.signIn("nobody", secret("counter-one"));
    const auto between = server.cryptography.derivations.load();
    const auto password = operators.signIn("anna", secret("counter-six"));
    const auto after = server.cryptography.derivations.load();
    EXPECT_EQ(between - before, after - between);
    EXPECT_TRUE(name.token.empty());
    EXPECT_TRUE(password.token.empty());
    EXPECT_EQ(name.waitMilliseconds, password.waitMilliseconds);
    EXPECT_EQ(name.who.id, password.who.id);
}

TEST_F(OperatorTest, ADisabledOperatorIsRefusedLikeAWrongPassword) {
    server.createAnna();
    const auto token = server.signInAnna();
    const auto ben = server.addBen(token);
    operators.setEnabled(token, ben, false);
    const auto answer = operators.signIn("ben", secret("counter-two"));
    EXPECT_TRUE(answer.token.empty());
    EXPECT_TRUE(answer.examined);
    EXPECT_EQ(answer.waitMilliseconds, 1000);
}

TEST_F(OperatorTest, DisablingEndsTheOperatorsSession) {
    server.createAnna();
    const auto token = server.signInAnna();
    const auto ben = server.addBen(token);
    const auto bens = operators.signIn("ben", secret("counter-two")).token;
    operators.setEnabled(token, ben, false);
    EXPECT_EQ(failureOf([&] { (void)operators.signedIn(bens); }), Failure::notSignedIn);
    operators.setEnabled(token, ben, true);
    EXPECT_EQ(failureOf([&] { (void)operators.signedIn(bens); }), Failure::notSignedIn);
}

TEST_F(OperatorTest, EnablingWhoIsEnabledKeepsTheSession) {
    server.createAnna();
    const auto token = server.signInAnna();
    const auto ben = server.addBen(token);
    const auto bens = operators.signIn("ben", secret("counter-two")).token;
    operators.setEnabled(token, ben, true);
    EXPECT_EQ(operators.signedIn(bens).userName, "ben");
}

TEST_F(OperatorTest, ANewOperatorHoldsNoPrivilegeUntilItIsGiven) {
    server.createAnna();
    const auto token = server.signInAnna();
    const auto ben = server.addBen(token);
    const auto bens = operators.signIn("ben", secret("counter-two")).token;
    EXPECT_FALSE(operators.hasPrivilege(bens, privilege::acceptCardPayments));
    operators.setPrivilege(token, ben, privilege::acceptCardPayments, true);
    EXPECT_TRUE(operators.hasPrivilege(bens, privilege::acceptCardPayments));
    operators.setPrivilege(token, ben, privilege::acceptCardPayments, false);
    EXPECT_FALSE(operators.hasPrivilege(bens, privilege::acceptCardPayments));
}

TEST_F(OperatorTest, ManagingNeedsThePrivilege) {
    server.createAnna();
    const auto token = server.signInAnna();
    const auto ben = server.addBen(token);
    const auto bens = operators.signIn("ben", secret("counter-two")).token;
    const auto refused = [&](const std::function<void()>& action) {
        EXPECT_EQ(failureOf(action), Failure::privilegeMissing);
    };
    refused([&] { (void)operators.list(bens); });
    refused([&] { operators.add(bens, {"C", "D", "cd"}, secret("counter-six")); });
    refused([&] { operators.setEnabled(bens, ben, false); });
    refused([&] { operators.setPrivilege(bens, ben, 1, true); });
    refused([&] { operators.resetPassword(bens, ben, secret("counter-six")); });
}

TEST_F(OperatorTest, AnInventedOrEndedTokenIsRefused) {
    server.createAnna();
    const auto token = server.signInAnna();
    EXPECT_EQ(failureOf([&] { (void)operators.list(""); }), Failure::notSignedIn);
    EXPECT_EQ(failureOf([&] { (void)operators.list(std::string(32, '0')); }), Failure::notSignedIn);
    operators.signOut(token);
    EXPECT_EQ(failureOf([&] { (void)operators.list(token); }), Failure::notSignedIn);
}

TEST_F(OperatorTest, WhoMayNotManageIsToldSoBeforeAnyWorkIsDoneForThem) {
    server.createAnna();
    const auto before = server.cryptography.derivations.load();
    for (const char* password : {"short", "counter-two"}) {
        EXPECT_EQ(failureOf([&] {
                      (void)operators.add("", {"Ben", "Moss", "ben"}, secret(password));
                  }),
                  Failure::notSignedIn);
    }
    EXPECT_EQ(server.cryptography.derivations.load(), before);
}

TEST_F(OperatorTest, ASessionThatEndsDuringTheCostlyWorkChangesNothingAnyMore) {
    server.createAnna();
    const auto ben = server.addBen(server.signInAnna());
    for (const bool adds : {true, false}) {
        const auto token = server.signInAnna();
        server.cryptography.onDerive = [&] { operators.signOut(token); };
        EXPECT_EQ(failureOf([&] {
                      if (adds)
                          (void)operators.add(token, {"Cem", "Roth", "cem"}, secret("counter-six"));
                      else
                          operators.resetPassword(token, ben, secret("counter-six"));
                  }),
                  Failure::notSignedIn);
        server.cryptography.onDerive = nullptr;
    }
    EXPECT_EQ(operators.count(), 2);
    EXPECT_FALSE(operators.signIn("ben", secret("counter-two")).token.empty());
}

TEST_F(OperatorTest, AUserNameIsTakenOnlyOnceWhateverItsCapitals) {
    server.createAnna();
    const auto token = server.signInAnna();
    EXPECT_EQ(failureOf([&] {
                  operators.add(token, {"Other", "Anna", "ANNA"}, secret("counter-six"));
              }),
              Failure::userNameTaken);
}

TEST_F(OperatorTest, TheLastManagerKeepsThePrivilegeAndStaysEnabled) {
    const auto anna = server.createAnna();
    const auto token = server.signInAnna();
    const auto ben = server.addBen(token);
    EXPECT_EQ(failureOf([&] { operators.setEnabled(token, anna, false); }), Failure::lastManager);
    EXPECT_EQ(failureOf([&] { operators.setPrivilege(token, anna, 1, false); }),
              Failure::lastManager);
    operators.setPrivilege(token, ben, privilege::manageOperators, true);
    EXPECT_NO_THROW(operators.setPrivilege(token, anna, 1, false));
}

TEST_F(OperatorTest, ADisabledManagerIsNotTheLastOne) {
    server.createAnna();
    const auto token = server.signInAnna();
    const auto ben = server.addBen(token);
    operators.setPrivilege(token, ben, privilege::manageOperators, true);
    operators.setEnabled(token, ben, false);
    EXPECT_NO_THROW(operators.setPrivilege(token, ben, privilege::manageOperators, false));
}

TEST_F(OperatorTest, UnknownOperatorsAndPrivilegeNumbersAreRefused) {
    server.createAnna();
    const auto token = server.signInAnna();
    EXPECT_EQ(failureOf([&] { operators.setEnabled(token, 99, true); }), Failure::unknownOperator);
    EXPECT_EQ(failureOf([&] { operators.setPrivilege(token, 1, 0, true); }),
              Failure::badOperatorData);
}

TEST_F(OperatorTest, AResetPasswordReplacesTheOldOneAndEndsTheWait) {
    server.createAnna();
    const auto token = server.signInAnna();
    const auto ben = server.addBen(token);
    (void)operators.signIn("ben", secret("forgotten-it"));
    operators.resetPassword(token, ben, secret("counter-six"));
    EXPECT_FALSE(operators.signIn("ben", secret("counter-six")).token.empty());
    EXPECT_TRUE(operators.signIn("ben", secret("counter-two")).token.empty());
}

TEST_F(OperatorTest, ChangingThePasswordAsksForTheOldOne) {
    server.createAnna();
    const auto token = server.signInAnna();
    EXPECT_EQ(failureOf([&] {
                  operators.changePassword(token, secret("wrong-one"), secret("counter-six"));
              }),
              Failure::wrongPassword);
    server.clock.advance(1000);
    operators.changePassword(token, secret("counter-one"), secret("counter-six"));
    EXPECT_FALSE(operators.signIn("anna", secret("counter-six")).token.empty());
    EXPECT_NO_THROW((void)operators.signedIn(token));
}

TEST_F(OperatorTest, PasswordsAreNotInTheFile) {
    server.createAnna();
    const auto readable = server.store.read([](Database& database) {
        auto query = database.prepare(
            "SELECT count(*) FROM operators WHERE instr(hash, 'counter') OR length(salt) < 16");
        return query.step() ? query.number(0) : -1;
    });
    EXPECT_EQ(readable, 0);
}

TEST_F(OperatorTest, TheListShowsNamesStatesAndPrivileges) {
    server.createAnna();
    const auto token = server.signInAnna();
    const auto ben = server.addBen(token);
    operators.setEnabled(token, ben, false);
    const auto all = operators.list(token);
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0].userName, "anna");
    EXPECT_EQ(all[0].privileges, (std::set<std::int32_t>{1, 4}));
    EXPECT_EQ(all[1].firstName, "Ben");
    EXPECT_FALSE(all[1].enabled);
}

} // namespace
} // namespace tollvane::hostdata
