#include "components/hostdata/store/StoreCare.h"

#include "components/hostdata/payments/PaymentRecord.h"
#include "components/hostdata/tests/TestSupport.h"

#include <chrono>
#include <fstream>
#include <future>
#include <iterator>

namespace tollvane::hostdata {
namespace {

void addPayments(Store& store, int count) {
    store.write([&](Database& database) {
        database
            .prepare("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
                     "INSERT INTO payments (created, street, checksum) "
                     "SELECT '2026-11-21T09:05:03Z', '12 Harbor Road', 'none' FROM n")
            .bind(std::int64_t{count})
            .run();
    });
}

std::string bytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void overwrite(const std::string& path, std::streamoff at, const std::string& bytes) {
    std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
    file.seekp(at);
    file << bytes;
}

// A store with one operator and so many payments, closed again.
void makeStore(const std::string& path, int payments) {
    Server server(path);
    server.createAnna();
    addPayments(server.store, payments);
}

// The middle of the file holds payments only: the file opens, and the damage shows when it is read.
void damageInside(const std::string& path) {
    const auto size = static_cast<std::streamoff>(std::filesystem::file_size(path));
    overwrite(path, size / 2 / 4096 * 4096, std::string(4096, '\x5A'));
}

// The engine lists what is wrong, or gives up on the file as a whole.
bool isFoundDamaged(const std::string& path) {
    try {
        return !checkStore(path).sound();
    } catch (const HostDataError& error) {
        return error.failure() == Failure::storeDamaged;
    }
}

// A privilege of an operator who is not there: every page is well, what they say is not.
void breakReference(const std::string& path) {
    Database database(path);
    database.execute("PRAGMA foreign_keys=OFF");
    database.execute("INSERT INTO privileges (operator_id, privilege) VALUES (99, 4)");
}

TEST(StoreCare, FactsCountPaymentsAndOperators) {
    const TestFolder folder;
    makeStore(folder.file(), 3);
    const StoreFacts facts = storeFacts(folder.file());
    EXPECT_TRUE(facts.exists);
    EXPECT_EQ(facts.payments, 3);
    EXPECT_EQ(facts.operators, 1);
    EXPECT_EQ(facts.bytes, std::filesystem::file_size(folder.file()));
}

TEST(StoreCare, FactsOfAMissingFileDoNotMakeIt) {
    const TestFolder folder;
    EXPECT_FALSE(storeFacts(folder.file()).exists);
    EXPECT_FALSE(std::filesystem::exists(folder.file()));
}

TEST(StoreCare, FactsOfADamagedFileAreRefused) {
    const TestFolder folder;
    std::ofstream(folder.file()) << std::string(8192, 'x');
    EXPECT_EQ(failureOf([&] { (void)storeFacts(folder.file()); }), Failure::storeDamaged);
}

TEST(StoreCare, ASoundStoreHasNoProblems) {
    const TestFolder folder;
    makeStore(folder.file(), 300);
    EXPECT_TRUE(checkStore(folder.file()).sound());
}

TEST(StoreCare, DamagedPagesAreFound) {
    const TestFolder folder;
    makeStore(folder.file(), 1000);
    damageInside(folder.file());
    EXPECT_TRUE(isFoundDamaged(folder.file()));
}

TEST(StoreCare, AStoreThatLostItsVersionIsFoundDamaged) {
    const TestFolder folder;
    makeStore(folder.file(), 2);
    constexpr std::streamoff versionInTheHeader = 60;
    overwrite(folder.file(), versionInTheHeader, std::string(4, '\0'));
    EXPECT_TRUE(isFoundDamaged(folder.file()));
}

TEST(StoreCare, CheckingAFileThatIsNoStoreIsRefusedAsDamaged) {
    const TestFolder folder;
    std::ofstream(folder.file()) << std::string(8192, 'x');
    EXPECT_EQ(failureOf([&] { (void)checkStore(folder.file()); }), Failure::storeDamaged);
}

TEST(StoreCare, AReferenceToAMissingRowIsFound) {
    const TestFolder folder;
    makeStore(folder.file(), 1);
    breakReference(folder.file());
    const StoreCheck check = checkStore(folder.file());
    ASSERT_EQ(check.problems.size(), 1U);
    EXPECT_EQ(check.problems[0], "A row of the table \"privileges\" refers to a row of "
                                 "\"operators\" that is not there.");
}

TEST(StoreCare, PaymentsThatChangedSinceTheyWereStoredAreFound) {
    const TestFolder folder;
    {
        Server server(folder.file());
        PaymentRecord record(server.store, server.clock, {}, {});
        for (int i = 0; i < 30; ++i) {
            record.addNew();
            record.update();
        }
        EXPECT_TRUE(checkStore(folder.file()).sound());
        server.store.write([](Database& database) {
            database.execute("UPDATE payments SET amount = 1 WHERE id % 10 = 2");
        });
    }
    const StoreCheck check = checkStore(folder.file());
    ASSERT_EQ(check.problems.size(), 3U);
    EXPECT_NE(check.problems[1].find("number 12 "), std::string::npos) << check.problems[1];
    Database(folder.file()).execute("UPDATE payments SET amount = 1");
    EXPECT_EQ(checkStore(folder.file()).problems.size(), 20U) << "the first ones are enough";
    EXPECT_EQ(failureOf([&] { backUpStore(folder.file(), folder.file("copy.db")); }),
              Failure::storeDamaged);
}

TEST(StoreCare, AStoreOfTheFirstVersionIsCheckedAsItIs) {
    const TestFolder folder;
    makeStore(folder.file(), 3);
    Database(folder.file())
        .execute("ALTER TABLE payments DROP COLUMN checksum; PRAGMA user_version=1");
    EXPECT_TRUE(checkStore(folder.file()).sound());
}

TEST(StoreCare, CheckingAMissingFileSaysThatItIsNotThere) {
    const TestFolder folder;
    EXPECT_EQ(failureOf([&] { (void)checkStore(folder.file()); }), Failure::storeNotOpened);
    EXPECT_FALSE(std::filesystem::exists(folder.file()));
}

TEST(StoreCare, CheckingDoesNotChangeTheFile) {
    const TestFolder folder;
    makeStore(folder.file(), 1000);
    damageInside(folder.file());
    const std::string before = bytesOf(folder.file());
    EXPECT_TRUE(isFoundDamaged(folder.file()));
    EXPECT_TRUE(bytesOf(folder.file()) == before);
}

TEST(StoreCare, ACopyHoldsEverything) {
    const TestFolder folder;
    makeStore(folder.file(), 1500);
    backUpStore(folder.file(), folder.file("copy.db"));
    const StoreFacts copy = storeFacts(folder.file("copy.db"));
    EXPECT_EQ(copy.payments, 1500);
    EXPECT_EQ(copy.operators, 1);
    Server restored(folder.file("copy.db"));
    EXPECT_FALSE(restored.signInAnna().empty());
}

TEST(StoreCare, ACopyTakesThePlaceOfAnEarlierOne) {
    const TestFolder folder;
    makeStore(folder.file(), 1);
    backUpStore(folder.file(), folder.file("copy.db"));
    {
        Store store(folder.file());
        addPayments(store, 1);
    }
    backUpStore(folder.file(), folder.file("copy.db"));
    EXPECT_EQ(storeFacts(folder.file("copy.db")).payments, 2);
    EXPECT_FALSE(std::filesystem::exists(folder.file("copy.db.part")));
}

TEST(StoreCare, ADamagedStoreDoesNotReplaceAnEarlierCopy) {
    const TestFolder folder;
    makeStore(folder.file(), 1000);
    backUpStore(folder.file(), folder.file("copy.db"));
    const std::string before = bytesOf(folder.file("copy.db"));
    damageInside(folder.file());
    EXPECT_EQ(failureOf([&] { backUpStore(folder.file(), folder.file("copy.db")); }),
              Failure::storeDamaged);
    EXPECT_TRUE(bytesOf(folder.file("copy.db")) == before);
    EXPECT_FALSE(std::filesystem::exists(folder.file("copy.db.part")));
}

TEST(StoreCare, ACopyThatIsNotSoundIsNotKept) {
    const TestFolder folder;
    makeStore(folder.file(), 1);
    breakReference(folder.file());
    EXPECT_EQ(failureOf([&] { backUpStore(folder.file(), folder.file("copy.db")); }),
              Failure::storeDamaged);
    EXPECT_FALSE(std::filesystem::exists(folder.file("copy.db")));
}

TEST(StoreCare, TheStoreIsNotCopiedOntoItself) {
    const TestFolder folder;
    makeStore(folder.file(), 1);
    EXPECT_EQ(failureOf([&] { backUpStore(folder.file(), folder.file()); }),
              Failure::backupRefused);
    EXPECT_EQ(storeFacts(folder.file()).payments, 1);
}

TEST(StoreCare, AFolderThatIsNotThereIsReported) {
    const TestFolder folder;
    makeStore(folder.file(), 1);
    EXPECT_EQ(failureOf([&] { backUpStore(folder.file(), folder.file("none/copy.db")); }),
              Failure::storeNotOpened);
}

TEST(StoreCare, ALargeStoreIsCopiedInSteps) {
    const TestFolder folder;
    makeStore(folder.file(), 1);
    Database(folder.file())
        .execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1200) "
                 "INSERT INTO payments (created, street, checksum) "
                 "SELECT 'then', hex(zeroblob(2000)), 'none' FROM n");
    backUpStore(folder.file(), folder.file("copy.db"));
    EXPECT_EQ(storeFacts(folder.file("copy.db")).payments, 1201);
}

TEST(StoreCare, ACopyThatCannotTakeItsPlaceIsReportedAndGone) {
    const TestFolder folder;
    makeStore(folder.file(), 1);
    std::filesystem::create_directories(folder.file("copy.db/inside"));
    EXPECT_EQ(failureOf([&] { backUpStore(folder.file(), folder.file("copy.db")); }),
              Failure::storeNotWritable);
    EXPECT_FALSE(std::filesystem::exists(folder.file("copy.db.part")));
}

TEST(StoreCare, TillsReadAndWriteBesideACopy) {
    const TestFolder folder;
    makeStore(folder.file(), 1000);
    Store store(folder.file());
    auto till = std::async(std::launch::async, [&] {
        for (int i = 0; i < 5; ++i)
            addPayments(store, 1);
    });
    backUpStore(folder.file(), folder.file("copy.db"));
    EXPECT_NO_THROW(till.get());
    EXPECT_EQ(storeFacts(folder.file()).payments, 1005);
    const auto copied = storeFacts(folder.file("copy.db")).payments;
    EXPECT_GE(copied, 1000);
    EXPECT_LE(copied, 1005);
}

} // namespace
} // namespace tollvane::hostdata
