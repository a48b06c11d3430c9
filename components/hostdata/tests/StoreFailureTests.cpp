#include "components/hostdata/store/StoreFailure.h"

#include "components/hostdata/payments/PaymentFields.h"
#include "components/hostdata/tests/TestSupport.h"

#include <sqlite3.h>

namespace tollvane::hostdata {
namespace {

TEST(StoreFailure, EveryResultOfTheEngineHasItsFailure) {
    const std::pair<int, Failure> rows[] = {{SQLITE_CANTOPEN, Failure::storeNotOpened},
                                            {SQLITE_CORRUPT, Failure::storeDamaged},
                                            {SQLITE_NOTADB, Failure::storeDamaged},
                                            {SQLITE_READONLY, Failure::storeNotWritable},
                                            {SQLITE_READONLY_DIRECTORY, Failure::storeNotWritable},
                                            {SQLITE_PERM, Failure::storeNotWritable},
                                            {SQLITE_AUTH, Failure::storeNotWritable},
                                            {SQLITE_FULL, Failure::storeFull},
                                            {SQLITE_BUSY, Failure::storeBusy},
                                            {SQLITE_BUSY_SNAPSHOT, Failure::storeBusy},
                                            {SQLITE_LOCKED, Failure::storeBusy},
                                            {SQLITE_IOERR_FSYNC, Failure::storeInputOutput},
                                            {SQLITE_ERROR, Failure::storeOther}};
    for (const auto& row : rows)
        EXPECT_EQ(failureOf([&] { raiseStoreFailure(row.first, nullptr); }), row.second)
            << row.first;
}

TEST(StoreFailure, TheEnginesOwnWordsAndCodeComeLast) {
    try {
        raiseStoreFailure(SQLITE_FULL, nullptr);
    } catch (const HostDataError& error) {
        EXPECT_TRUE(std::string(error.what()).ends_with("(database or disk is full, code 13)"))
            << error.what();
    }
}

TEST(Statement, ValuesThatAreNotThereAreNothing) {
    const TestFolder folder;
    Database database(folder.file());
    auto query = database.prepare("SELECT ?, ?, ?, ?, x''");
    query.bind(std::optional<std::string>("text"))
        .bind(std::optional<std::string>())
        .bind(std::optional<std::int64_t>(7))
        .bind(std::optional<std::int64_t>());
    ASSERT_TRUE(query.step());
    EXPECT_EQ(query.text(0), "text");
    EXPECT_TRUE(query.isNull(1));
    EXPECT_EQ(query.text(1), "");
    EXPECT_EQ(query.number(2), 7);
    EXPECT_TRUE(query.isNull(3));
    EXPECT_TRUE(query.blob(4).empty());
    EXPECT_FALSE(query.step());
}

TEST(Statement, RunGoesThroughAllRows) {
    const TestFolder folder;
    Database database(folder.file());
    EXPECT_NO_THROW(database.prepare("SELECT 1 UNION SELECT 2").run());
    EXPECT_EQ(failureOf([&] { database.prepare("SELECT nothing FROM nowhere"); }),
              Failure::storeOther);
}

TEST(PaymentFields, AFieldMayBeEmptied) {
    for (const FieldDefinition& field : kPaymentFields) {
        if (field.writable)
            EXPECT_NO_THROW(checkFieldValue(field, FieldValue())) << field.name;
        else
            EXPECT_EQ(failureOf([&] { checkFieldValue(field, FieldValue()); }),
                      Failure::readOnlyField);
    }
}

} // namespace
} // namespace tollvane::hostdata
