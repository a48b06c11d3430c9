// The fakes where they decide something themselves.
#include "tests/desktop/TestDesktop.h"
#include "tests/scenarios/TracedForm.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace tollvane::test {
namespace {

TEST(FakeClock, MovesByMonthsKeepingTheDayWhereTheMonthHasIt) {
    FakeClock clock;
    clock.set({2027, 1, 31, 10, 20, 30});
    clock.moveMonths(1);
    EXPECT_EQ(clock.now(), (DateTime{2027, 2, 28, 10, 20, 30}));
    clock.moveMonths(-14);
    EXPECT_EQ(clock.now(), (DateTime{2025, 12, 28, 10, 20, 30}));
}

TEST(FakeClock, CarriesTimeOverMidnightAndCountsMilliseconds) {
    FakeClock clock;
    clock.set({2028, 2, 28, 23, 59, 59});
    const std::uint64_t before = clock.milliseconds();
    clock.advance(1'500);
    EXPECT_EQ(clock.now(), (DateTime{2028, 2, 29, 0, 0, 0}));
    EXPECT_EQ(clock.milliseconds() - before, 1'500U);
}

TEST(FakeLocale, TellsTheSizeFirstAndThenTheValue) {
    FaultPlan faults;
    FakeLocale locale(faults);
    char buffer[8] = {};
    EXPECT_EQ(locale.info(locale.userDefault(), localeitem::currency, nullptr, 0), 2);
    EXPECT_EQ(locale.info(locale.userDefault(), localeitem::currency, buffer, 2), 2);
    EXPECT_STREQ(buffer, "$");
    EXPECT_EQ(locale.info(locale.userDefault(), localeitem::currency, buffer, 1), 0);
    EXPECT_EQ(locale.info(locale.userDefault(), 0xFFFF, nullptr, 0), 0);
    locale.use(localeid::japan);
    EXPECT_EQ(locale.info(locale.systemDefault(), localeitem::moneyDigits, buffer, 8), 2);
    EXPECT_STREQ(buffer, "0");
}

TEST(RecordedMessageBoxes, AQuestionThatNobodyPlannedFailsTheTest) {
    static FaultPlan faults;
    static RecordedMessageBoxes boxes(faults);
    EXPECT_NONFATAL_FAILURE(boxes.show({.text = "Sure?", .buttons = MessageButtons::yesNo}),
                            "nobody planned an answer");
    boxes.answer(MessageAnswer::yes);
    EXPECT_EQ(boxes.show({.text = "Sure?", .buttons = MessageButtons::yesNo}), MessageAnswer::yes);
    EXPECT_EQ(boxes.show({.text = "Done."}), MessageAnswer::ok);
    EXPECT_EQ(boxes.take().size(), 3U);
    EXPECT_TRUE(boxes.shown().empty());
}

TEST(FakeAutomation, AClassThatIsNotRegisteredRaises429AndAnUnknownMember438) {
    TestDesktop desk;
    desk.automation.unregister("ZendaSwiftill.Tollvane");
    try {
        desk.automation.create("ZendaSwiftill.Tollvane");
        FAIL() << "created";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 429);
    }
    try {
        desk.charge.object()->call("Refuse");
        FAIL() << "called";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 438);
    }
    EXPECT_THROW(desk.charge.object()->get("ClearFields"), Error);
}

TEST(FakeAutomation, RecordsShowCallsWithTheirArgumentsAndHideCardData) {
    TestDesktop desk;
    const ObjectRef charge = desk.charge.object();
    charge->put("CardNumber", SecretText("4111111111111111"));
    charge->put("Amount", Money::fromUnits(12));
    charge->call("LogLoggedInUser", {{std::string("Ada"), true}});
    charge->get("TestMode");
    EXPECT_EQ(desk.record.texts(),
              (std::vector<std::string>{"charge.CardNumber = secret(16)", "charge.Amount = 12",
                                        "charge.LogLoggedInUser(&\"Ada\")", "charge.TestMode"}));
}

TEST(FakeCharge, ClearingEmptiesEverythingAndAnOperationKeepsWhatItSaw) {
    TestDesktop desk;
    const ObjectRef charge = desk.charge.object();
    charge->put("Tax", std::string("1.50"));
    charge->put("LastName", std::string("Byron"));
    asObject(charge->call("TransactionField", {{std::string("x_card_code")}}))
        ->put("cTransactionFields_Value", std::string("123"));
    desk.charge.answer(declined(2, 27, "No."));
    EXPECT_FALSE(asBool(charge->call("AuthorizeAndCapture")));
    EXPECT_EQ(asInt(charge->get("ResponseReasonCode")), 27);
    charge->call("ClearFields");
    EXPECT_EQ(asText(charge->get("LastName")), "");
    EXPECT_EQ(std::get<Money>(charge->get("Tax")), Money());
    EXPECT_EQ(desk.charge.field("x_card_code"), "");
    const ChargeOperation& seen = desk.charge.operations().at(0);
    EXPECT_EQ(seen.text("LastName"), "Byron");
    EXPECT_EQ(std::get<Money>(seen.property("Tax")), Money::fromScaled(15'000));
    EXPECT_EQ(seen.field("x_card_code"), "123");
}

TEST(FakeHostData, KeepsOnlyRecordsThatWereUpdated) {
    TestDesktop desk;
    const ObjectRef server = desk.hostData.object();
    const ObjectRef payment = asObject(server->call("SafeCreateObj", {{std::int32_t{17}}}));
    EXPECT_THROW(payment->call("AddNew"), Error) << "not positioned";
    payment->call("GetrecbyIDNumber", {{std::int32_t{-1}}});
    EXPECT_THROW(payment->call("Update"), Error) << "no new record";
    payment->call("AddNew");
    asObject(payment->get("Item", {{std::string("Zip")}}))->put("Value", std::string("62701"));
    EXPECT_TRUE(desk.hostData.posted.empty());
    payment->call("Update");
    ASSERT_EQ(desk.hostData.posted.size(), 1U);
    EXPECT_EQ(desk.hostData.posted[0].text("Zip"), "62701");
    EXPECT_FALSE(desk.hostData.posted[0].has("Account"));
}

TEST(FaultPlan, ASweepEndsWhenNoCallIsLeftToFail) {
    std::string failed;
    const int runs = sweepFaults([&](int nth) {
        FaultPlan faults;
        faults.failAt(Port::files, nth, 5);
        for (const char* call : {"one", "two", "three"}) {
            faults.strikes(Port::files, call);
        }
        failed += faults.failedCall() + " ";
        return faults.reached();
    });
    EXPECT_EQ(runs, 3);
    EXPECT_EQ(failed, "one two three  ");
}

TEST(FaultPlan, ControlsFailOnlyInsideHandlers) {
    TestDesktop desk;
    TracedForm traced(*desk.forms);
    traced.show();
    desk.faults.failAt(Port::controls, 1, 7);
    traced.box("txtSecond").setText("from outside");
    EXPECT_FALSE(desk.faults.reached());
    traced.during["txtFirst_Change"] = [&] { traced.box("txtSecond").setText("from a handler"); };
    desk.robot->typeText("a");
    EXPECT_TRUE(desk.faults.reached());
    EXPECT_EQ(desk.faults.failedCall(), "txtSecond.setText");
    EXPECT_EQ(traced.box("txtSecond").text(), "from outside");
    EXPECT_EQ(desk.escaped.noted().size(), 1U);
}

TEST(MemoryForms, AModalFormWithoutAPlanFailsTheTestAndIsClosed) {
    static TestDesktop desk;
    static TracedForm traced(*desk.forms);
    EXPECT_NONFATAL_FAILURE(traced.form().showModal(nullptr), "nobody planned");
    EXPECT_FALSE(traced.form().isOpen());
}

TEST(MemoryForms, KeysWithoutAFormFailTheTest) {
    static TestDesktop desk;
    EXPECT_NONFATAL_FAILURE(desk.robot->typeText("a"), "no form takes keys");
}

} // namespace
} // namespace tollvane::test
