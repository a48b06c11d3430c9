#include "components/hostdata/payments/PaymentRecord.h"

#include "components/hostdata/payments/PaymentTable.h"
#include "components/hostdata/tests/SyncWatch.h"
#include "components/hostdata/tests/TestSupport.h"

namespace tollvane::hostdata {
namespace {

class PaymentRecordTest : public ::testing::Test {
protected:
    TestFolder folder;
    FakeClock clock;
    Store store{folder.file()};
    PaymentRecord record{store, clock, "anna", "Shop one"};

    void fill(PaymentRecord& into, std::int64_t amount) {
        into.getRecordById(-1);
        into.addNew();
        into.setValue(paymentField("Account"), std::string("************1111"));
        into.setValue(paymentField("Amount"), amount);
        into.setValue(paymentField("Approval"), std::string("OK1234"));
    }
    std::int64_t stored() {
        return store.read([](Database& database) { return PaymentTable(database).count(); });
    }
};

TEST_F(PaymentRecordTest, AStoredRecordIsReadBackByItsId) {
    fill(record, -250'000);
    record.update();
    const auto id = std::get<std::int64_t>(record.value(paymentField("Id")));
    PaymentRecord reader(store, clock, {}, {});
    reader.getRecordById(id);
    EXPECT_EQ(reader.value(paymentField("Amount")), FieldValue(std::int64_t{-250'000}));
    EXPECT_EQ(reader.value(paymentField("Account")), FieldValue(std::string("************1111")));
    EXPECT_EQ(reader.value(paymentField("Operator")), FieldValue(std::string("anna")));
    EXPECT_EQ(reader.value(paymentField("Location")), FieldValue(std::string("Shop one")));
    EXPECT_EQ(reader.value(paymentField("Created")),
              FieldValue(std::string("2027-01-15T08:00:00Z")));
}

TEST_F(PaymentRecordTest, ARecordThatChangedSinceItWasStoredIsRefusedAsDamaged) {
    for (const char* change :
         {"UPDATE payments SET amount = amount + 1", "UPDATE payments SET approval = 'OK1235'",
          "UPDATE payments SET zip = ''", "UPDATE payments SET street = approval",
          "UPDATE payments SET id = id + 100", "UPDATE payments SET checksum = ''",
          "UPDATE payments SET checksum = NULL"}) {
        fill(record, -250'000);
        record.update();
        store.write([&](Database& database) { database.execute(change); });
        const std::int64_t id = store.read([](Database& database) {
            auto last = database.prepare("SELECT max(id) FROM payments");
            return last.step() ? last.number(0) : 0;
        });
        PaymentRecord reader(store, clock, {}, {});
        EXPECT_EQ(failureOf([&] { reader.getRecordById(id); }), Failure::storeDamaged) << change;
    }
}

// A store of an older version, which `change` makes of a new one, with a payment of that time.
void makeOld(const std::string& path, const char* change) {
    Store(path).write([&](Database& database) {
        database.execute(change);
        database.execute("INSERT INTO payments (created, amount) VALUES ('then', 12500)");
    });
}

TEST_F(PaymentRecordTest, AStoreOfTheFirstVersionIsBroughtUpToDate) {
    makeOld(folder.file("old.db"), "ALTER TABLE payments DROP COLUMN checksum; "
                                   "PRAGMA user_version=1");
    Store upgraded(folder.file("old.db"));
    PaymentRecord reader(upgraded, clock, {}, {});
    reader.getRecordById(1);
    EXPECT_EQ(reader.value(paymentField("Amount")), FieldValue(std::int64_t{12'500}));
    fill(reader, 1);
    EXPECT_NO_THROW(reader.update());
    EXPECT_NO_THROW(reader.getRecordById(2));
}

TEST_F(PaymentRecordTest, AStoreOfTheSecondVersionKeepsItsUncheckedPayments) {
    makeOld(folder.file("old.db"), "PRAGMA user_version=2");
    Store upgraded(folder.file("old.db"));
    PaymentRecord reader(upgraded, clock, {}, {});
    EXPECT_NO_THROW(reader.getRecordById(1));
    upgraded.write(
        [](Database& database) { database.execute("UPDATE payments SET checksum = NULL"); });
    EXPECT_EQ(failureOf([&] { reader.getRecordById(1); }), Failure::storeDamaged);
}

TEST_F(PaymentRecordTest, AFieldThatWasNotSetIsNothing) {
    fill(record, 1);
    record.update();
    EXPECT_EQ(record.value(paymentField("Expire")), FieldValue());
}

TEST_F(PaymentRecordTest, AHalfFilledRecordIsNotStored) {
    fill(record, 10'000);
    record.addNew();
    fill(record, 20'000);
    record.getRecordById(-1);
    EXPECT_EQ(stored(), 0);
}

TEST_F(PaymentRecordTest, UpdateStoresOnce) {
    fill(record, 10'000);
    record.update();
    EXPECT_EQ(failureOf([&] { record.update(); }), Failure::noCurrentRecord);
    EXPECT_EQ(stored(), 1);
}

TEST_F(PaymentRecordTest, NothingIsReadOrSetWithoutARecord) {
    EXPECT_EQ(failureOf([&] { (void)record.value(0); }), Failure::noCurrentRecord);
    EXPECT_EQ(failureOf([&] { record.setValue(0, FieldValue()); }), Failure::noCurrentRecord);
    EXPECT_EQ(failureOf([&] { record.update(); }), Failure::noCurrentRecord);
}

TEST_F(PaymentRecordTest, AnUnknownIdIsAnErrorAndKeepsTheNewRecord) {
    fill(record, 10'000);
    EXPECT_EQ(failureOf([&] { record.getRecordById(77); }), Failure::unknownRecord);
    record.update();
    EXPECT_EQ(stored(), 1);
}

TEST_F(PaymentRecordTest, AStoredRecordCannotBeChanged) {
    fill(record, 10'000);
    record.update();
    EXPECT_EQ(failureOf([&] { record.setValue(paymentField("Zip"), std::string("1")); }),
              Failure::readOnlyField);
}

TEST_F(PaymentRecordTest, FieldNamesIgnoreCaseAndUnknownOnesAreRefused) {
    EXPECT_EQ(paymentField("transid"), paymentField("TransID"));
    EXPECT_EQ(failureOf([] { (void)paymentField("CardCode"); }), Failure::unknownField);
    EXPECT_EQ(failureOf([] { (void)paymentField(""); }), Failure::unknownField);
}

TEST_F(PaymentRecordTest, AFullCardNumberIsRefusedAsAccount) {
    record.addNew();
    const auto account = paymentField("Account");
    EXPECT_EQ(failureOf([&] { record.setValue(account, std::string("*****11111")); }),
              Failure::badFieldValue);
    EXPECT_NO_THROW(record.setValue(account, std::string("******1111")));
    EXPECT_NO_THROW(record.setValue(account, std::string("1111")));
}

TEST_F(PaymentRecordTest, TheLongestTextOfEveryFieldIsTakenAndReadBack) {
    for (const FieldDefinition& field : kPaymentFields) {
        if (!field.writable || field.type != FieldType::text)
            continue;
        const std::string longest(field.longest, 'x');
        fill(record, 10'000);
        record.setValue(paymentField(field.name), longest);
        record.update();
        EXPECT_EQ(record.value(paymentField(field.name)), FieldValue(longest)) << field.name;
        record.addNew();
        EXPECT_EQ(failureOf([&] { record.setValue(paymentField(field.name), longest + "x"); }),
                  Failure::badFieldValue)
            << field.name;
    }
}

TEST_F(PaymentRecordTest, WrongTypesLengthsAndTheStoresOwnFieldsAreRefused) {
    record.addNew();
    const auto set = [&](const char* name, const FieldValue& value) {
        return failureOf([&] { record.setValue(paymentField(name), value); });
    };
    EXPECT_EQ(set("Amount", std::string("12")), Failure::badFieldValue);
    EXPECT_EQ(set("Zip", std::int64_t{1}), Failure::badFieldValue);
    EXPECT_EQ(set("Zip", std::string(51, '1')), Failure::badFieldValue);
    EXPECT_EQ(set("Id", std::int64_t{1}), Failure::readOnlyField);
    EXPECT_EQ(set("Created", std::string("now")), Failure::readOnlyField);
}

TEST(PaymentDurability, ARecordIsOnTheDiskBeforeUpdateReturns) {
    const TestFolder folder;
    const FakeClock clock;
    SyncWatch watch;
    Store store(folder.file());
    PaymentRecord record(store, clock, {}, {});
    record.addNew();
    record.setValue(paymentField("TransID"), std::string("T-1"));
    const int before = watch.syncs();
    record.update();
    EXPECT_GT(watch.syncs(), before);
    EXPECT_EQ(watch.unsynced(), 0);
}

TEST(PaymentDurability, AFailingDiskMakesUpdateFailAndTheRecordCanBeStoredAgain) {
    const TestFolder folder;
    const FakeClock clock;
    SyncWatch watch;
    Store store(folder.file());
    PaymentRecord record(store, clock, {}, {});
    record.getRecordById(-1);
    record.addNew();
    record.setValue(paymentField("TransID"), std::string("T-2"));
    store.read([](Database&) {});
    watch.failSyncs(true);
    EXPECT_EQ(failureOf([&] { record.update(); }), Failure::storeInputOutput);
    watch.failSyncs(false);
    const auto stored = [&] {
        return store.read([](Database& database) { return PaymentTable(database).count(); });
    };
    EXPECT_EQ(stored(), 0);
    record.update();
    EXPECT_EQ(stored(), 1);
}

TEST(PaymentDurability, TwoTillsStoreTheirRecordsAtTheSameTime) {
    const TestFolder folder;
    const FakeClock clock;
    Store one(folder.file());
    Store two(folder.file());
    PaymentRecord first(one, clock, {}, {});
    PaymentRecord second(two, clock, {}, {});
    first.addNew();
    second.addNew();
    first.update();
    second.update();
    EXPECT_NE(first.value(paymentField("Id")), second.value(paymentField("Id")));
}

class ComparedPaymentTest : public PaymentRecordTest {
protected:
    bool addOnce(const std::string& transaction, std::int64_t amount) {
        PaymentRecord added(store, clock, "anna", "Shop one");
        added.addNew();
        added.setValue(paymentField("TransID"), transaction);
        added.setValue(paymentField("Amount"), amount);
        return added.updateOnce();
    }
};

TEST_F(ComparedPaymentTest, APaymentIsAddedOnceHoweverOftenItIsTried) {
    EXPECT_TRUE(addOnce("1000000001", 10'000));
    EXPECT_FALSE(addOnce("1000000001", 10'000));
    EXPECT_EQ(stored(), 1);
    // A void may go by the number of what it takes back.
    EXPECT_TRUE(addOnce("1000000001", -10'000));
    EXPECT_TRUE(addOnce("1000000002", 10'000));
    EXPECT_EQ(stored(), 3);
}

TEST_F(ComparedPaymentTest, ARecordThatWasNotAddedStaysAsItWasFilled) {
    ASSERT_TRUE(addOnce("1", 10'000));
    record.addNew();
    record.setValue(paymentField("TransID"), std::string("1"));
    record.setValue(paymentField("Amount"), std::int64_t{10'000});
    EXPECT_FALSE(record.updateOnce());
    record.setValue(paymentField("Amount"), std::int64_t{20'000});
    EXPECT_TRUE(record.updateOnce());
    EXPECT_EQ(record.value(paymentField("Id")), FieldValue(std::int64_t{2}));
    EXPECT_EQ(failureOf([&] { (void)record.updateOnce(); }), Failure::noCurrentRecord);
}

TEST_F(ComparedPaymentTest, WhatWasStoredInTheLastDaysIsListedNewestFirst) {
    ASSERT_TRUE(addOnce("old", 10'000));
    clock.advance(3 * 86'400'000LL);
    ASSERT_TRUE(addOnce("first", 314'000));
    ASSERT_TRUE(addOnce("second", -50'000));
    fill(record, 1); // without a transaction: nothing to compare
    record.update();
    record.addNew();
    record.setValue(paymentField("TransID"), std::string("without an amount"));
    record.update();
    EXPECT_EQ(storedPayments(store, clock, 2), "second\t-50000\nfirst\t314000\n");
    EXPECT_EQ(storedPayments(store, clock, 3), "second\t-50000\nfirst\t314000\nold\t10000\n");
    const auto newest =
        store.read([](Database& database) { return PaymentTable(database).listSince("2000", 1); });
    EXPECT_EQ(newest, "second\t-50000\n");
}

TEST_F(PaymentRecordTest, AStoreThatWasClosedOpensAgain) {
    fill(record, 10'000);
    record.update();
    store.close();
    EXPECT_EQ(stored(), 1);
}

} // namespace
} // namespace tollvane::hostdata
