#include "components/hostdata/operators/SignInDelay.h"

#include "components/hostdata/tests/TestSupport.h"

namespace tollvane::hostdata {
namespace {

constexpr const char* kWrong = "not-the-password";

class SignInDelayTest : public ::testing::Test {
protected:
    TestFolder folder;
    Server server{folder.file()};

    void SetUp() override { server.createAnna(); }
    SignInAnswer wrong(const std::string& name = "anna") {
        return server.operators.signIn(name, secret(kWrong));
    }
    // Fails for the name n times, waiting out the delay each time.
    std::int64_t fail(const std::string& name, int times) {
        std::int64_t wait = 0;
        for (int i = 0; i < times; ++i) {
            wait = wrong(name).waitMilliseconds;
            server.clock.advance(wait);
        }
        return wait;
    }
};

TEST(SignInDelayTable, ANamesDelayDoublesUpToFiveMinutes) {
    EXPECT_EQ(delayForName(0), 0);
    EXPECT_EQ(delayForName(1), 1000);
    EXPECT_EQ(delayForName(2), 2000);
    EXPECT_EQ(delayForName(5), 16'000);
    EXPECT_EQ(delayForName(9), 256'000);
    EXPECT_EQ(delayForName(10), 300'000);
    EXPECT_EQ(delayForName(1'000'000'000), 300'000);
}

TEST(SignInDelayTable, TheCommonDelayStartsLateAndStaysShort) {
    EXPECT_EQ(delayForAll(5), 0);
    EXPECT_EQ(delayForAll(6), 500);
    EXPECT_EQ(delayForAll(7), 1000);
    EXPECT_EQ(delayForAll(50), 10'000);
}

TEST_F(SignInDelayTest, EachWrongPasswordDoublesTheWait) {
    EXPECT_EQ(fail("anna", 1), 1000);
    EXPECT_EQ(fail("anna", 1), 2000);
    EXPECT_EQ(fail("anna", 1), 4000);
}

TEST_F(SignInDelayTest, TheRightPasswordIsNotLookedAtBeforeTheWaitIsOver) {
    wrong();
    server.clock.advance(999);
    const auto early = server.operators.signIn("anna", secret("counter-one"));
    EXPECT_FALSE(early.examined);
    EXPECT_TRUE(early.token.empty());
    EXPECT_EQ(early.waitMilliseconds, 1);
    server.clock.advance(1);
    EXPECT_FALSE(server.signInAnna().empty());
}

TEST_F(SignInDelayTest, AnEarlyAttemptDoesNotLengthenTheWait) {
    wrong();
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(wrong().waitMilliseconds, 1000);
}

TEST_F(SignInDelayTest, ASignInForgetsTheNamesFailures) {
    fail("anna", 3);
    EXPECT_FALSE(server.signInAnna().empty());
    EXPECT_EQ(fail("anna", 1), 1000);
}

TEST_F(SignInDelayTest, EndingTheServerDoesNotResetTheWait) {
    fail("anna", 3);
    wrong();
    Server restarted(folder.file());
    const auto answer = restarted.operators.signIn("anna", secret("counter-one"));
    EXPECT_FALSE(answer.examined);
    EXPECT_EQ(answer.waitMilliseconds, 8000);
}

TEST_F(SignInDelayTest, AnAttemptThatIsCutOffCountsAsWrong) {
    const std::string key = "k";
    const auto begin = [&] {
        return server.store.write([&](Database& database) {
            return SignInDelay(database, key).beginAttempt(server.clock.now());
        });
    };
    EXPECT_EQ(begin(), 0);
    EXPECT_EQ(begin(), 1000);
}

TEST_F(SignInDelayTest, OneNamesWaitDoesNotHoldUpAnother) {
    server.addBen(server.signInAnna());
    wrong("ben");
    EXPECT_FALSE(server.signInAnna().empty());
}

TEST_F(SignInDelayTest, GuessingManyNamesSlowsDownAllOfThem) {
    for (int i = 0; i < 6; ++i)
        wrong("name" + std::to_string(i));
    const auto next = wrong("another");
    EXPECT_FALSE(next.examined);
    EXPECT_EQ(next.waitMilliseconds, 500);
}

TEST_F(SignInDelayTest, TheCommonWaitNeverExceedsTenSeconds) {
    for (int i = 0; i < 60; ++i)
        server.clock.advance(wrong("name" + std::to_string(i)).waitMilliseconds);
    const auto next = wrong("another");
    EXPECT_LE(next.waitMilliseconds, 10'000);
}

TEST_F(SignInDelayTest, ASignInTakesOnlyItselfFromTheFailuresOfAll) {
    for (int i = 0; i < 5; ++i)
        wrong("name" + std::to_string(i));
    EXPECT_FALSE(server.signInAnna().empty());
    EXPECT_EQ(wrong("a sixth name").waitMilliseconds, 1000) << "no longer than the name's own wait";
    const auto next = wrong("a seventh name");
    EXPECT_FALSE(next.examined) << "the five from before the sign-in and the sixth count together";
    EXPECT_EQ(next.waitMilliseconds, 500);
}

TEST_F(SignInDelayTest, SignInsAloneNeverHoldUpOneAnother) {
    for (int i = 0; i < 20; ++i)
        EXPECT_FALSE(server.signInAnna().empty());
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(wrong("name" + std::to_string(i)).examined);
    EXPECT_TRUE(wrong("a sixth name").examined);
    EXPECT_EQ(wrong("a seventh name").waitMilliseconds, 500);
}

TEST_F(SignInDelayTest, TenQuietMinutesForgetTheCommonWait) {
    for (int i = 0; i < 20; ++i)
        server.clock.advance(wrong("name" + std::to_string(i)).waitMilliseconds);
    server.clock.advance(11LL * 60 * 1000);
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(wrong("other" + std::to_string(i)).examined);
}

TEST_F(SignInDelayTest, AnUnknownNameIsSlowedDownLikeAKnownOne) {
    EXPECT_EQ(fail("nobody", 2), 2000);
    EXPECT_EQ(fail("anna", 2), 2000);
}

TEST_F(SignInDelayTest, CapitalsAndBlanksDoNotMakeAnotherName) {
    wrong("anna");
    EXPECT_FALSE(wrong(" ANNA ").examined);
}

TEST_F(SignInDelayTest, AClockThatWasSetBackLocksNobodyOutForLonger) {
    fail("anna", 2);
    server.clock.advance(-365LL * 24 * 3600 * 1000);
    EXPECT_LE(wrong().waitMilliseconds, 2000);
}

TEST_F(SignInDelayTest, NamesAreNotKeptReadable) {
    wrong("my-secret-typed-here");
    const auto readable = server.store.read([](Database& database) {
        auto query =
            database.prepare("SELECT count(*) FROM sign_in_delays WHERE scope LIKE '%secret%'");
        return query.step() ? query.number(0) : -1;
    });
    EXPECT_EQ(readable, 0);
}

TEST_F(SignInDelayTest, MadeUpNamesDoNotFillTheStore) {
    server.store.write([&](Database& database) {
        for (int i = 0; i < 1100; ++i) {
            server.clock.advance(20'000);
            SignInDelay(database, "k" + std::to_string(i)).beginAttempt(server.clock.now());
        }
    });
    const auto kept = server.store.read([](Database& database) {
        auto query = database.prepare("SELECT count(*) FROM sign_in_delays");
        return query.step() ? query.number(0) : -1;
    });
    EXPECT_EQ(kept, 1001);
}

} // namespace
} // namespace tollvane::hostdata
