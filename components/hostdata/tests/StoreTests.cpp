#include "components/hostdata/store/StoreCare.h"
#include "components/hostdata/tests/TestSupport.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <future>
#include <thread>

namespace tollvane::hostdata {
namespace {

void addRow(Database& database, const std::string& name) {
    database.prepare("INSERT INTO store_settings (name, value) VALUES (?, x'00')")
        .bind(std::string_view(name))
        .run();
}

std::int64_t rows(Store& store) {
    return store.read([](Database& database) {
        auto query = database.prepare("SELECT count(*) FROM store_settings");
        return query.step() ? query.number(0) : -1;
    });
}

void overwrite(const std::string& path, std::streamoff at, const std::string& bytes) {
    std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
    file.seekp(at);
    file << bytes;
}

TEST(Store, CreatesItsFolderAndTables) {
    const TestFolder folder;
    Store store(folder.file("shop one/data/hostdata.db"));
    EXPECT_EQ(rows(store), 1);
}

TEST(Store, OpeningItEarlyMakesNoFile) {
    const TestFolder folder;
    Store store(folder.file("early/hostdata.db"));
    store.open();
    EXPECT_FALSE(std::filesystem::exists(folder.file("early")));
    EXPECT_EQ(rows(store), 1);
}

TEST(Store, OpeningItEarlyRaisesWhatTheFirstWorkWould) {
    const TestFolder folder;
    std::ofstream(folder.file()) << "not a store, but longer than the header of one is, by a lot";
    Store store(folder.file());
    try {
        store.open();
        FAIL() << "a damaged file was opened";
    } catch (const HostDataError& error) {
        EXPECT_EQ(error.failure(), Failure::storeDamaged);
    }
    EXPECT_THROW(rows(store), HostDataError);
}

TEST(Store, FailedWorkLeavesNothingBehind) {
    const TestFolder folder;
    Store store(folder.file());
    EXPECT_THROW(store.write([](Database& database) {
        addRow(database, "half");
        throw std::runtime_error("stop");
    }),
                 std::runtime_error);
    EXPECT_EQ(rows(store), 1);
    store.write([](Database& database) { addRow(database, "whole"); });
    EXPECT_EQ(rows(store), 2);
}

TEST(Store, TwoConnectionsWriteAtTheSameTime) {
    const TestFolder folder;
    Store one(folder.file());
    Store two(folder.file());
    constexpr int each = 20;
    const auto fill = [](Store& store, const std::string& prefix) {
        for (int i = 0; i < each; ++i)
            store.write([&](Database& database) { addRow(database, prefix + std::to_string(i)); });
    };
    std::thread other(fill, std::ref(two), "two");
    fill(one, "one");
    other.join();
    EXPECT_EQ(rows(one), 1 + 2 * each);
}

TEST(Store, WaitsForAnotherConnectionThatHoldsTheWriteLock) {
    const TestFolder folder;
    Store one(folder.file());
    Store two(folder.file());
    std::promise<void> locked;
    std::promise<void> release;
    std::thread holder([&] {
        one.write([&](Database& database) {
            addRow(database, "one");
            locked.set_value();
            release.get_future().wait();
        });
    });
    locked.get_future().wait();
    auto waiting = std::async(std::launch::async, [&] {
        two.write([](Database& database) { addRow(database, "two"); });
    });
    EXPECT_EQ(waiting.wait_for(std::chrono::milliseconds(100)), std::future_status::timeout);
    release.set_value();
    EXPECT_NO_THROW(waiting.get());
    holder.join();
    EXPECT_EQ(rows(two), 3);
}

TEST(Store, TextThatIsNoDatabaseIsReportedAsDamaged) {
    const TestFolder folder;
    std::ofstream(folder.file()) << std::string(8192, 'x');
    Store store(folder.file());
    EXPECT_EQ(failureOf([&] { rows(store); }), Failure::storeDamaged);
}

TEST(Store, OverwrittenPagesAreReportedAsDamaged) {
    const TestFolder folder;
    { EXPECT_EQ(rows(*std::make_unique<Store>(folder.file())), 1); }
    overwrite(folder.file(), 4096, std::string(8192, '\x5A'));
    Store store(folder.file());
    EXPECT_EQ(failureOf([&] { rows(store); }), Failure::storeDamaged);
}

// More payments than a store may hold that is looked at as a whole when it is opened.
void fillLarge(const std::string& path) {
    Store store(path);
    store.write([](Database& database) {
        database.execute("WITH RECURSIVE number(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM number "
                         "WHERE n < 6000) INSERT INTO payments (created, street, checksum) "
                         "SELECT 'now', hex(zeroblob(500)), 'none' FROM number");
    });
}

TEST(Store, ALargeStoreWithDamageAmongOldPaymentsOpensAndItsCheckFindsIt) {
    const TestFolder folder;
    fillLarge(folder.file());
    const auto middle = static_cast<std::streamoff>(std::filesystem::file_size(folder.file()) / 2);
    overwrite(folder.file(), middle / 4096 * 4096, std::string(4096, '\x5A'));
    Store store(folder.file());
    EXPECT_EQ(rows(store), 1);
    EXPECT_EQ(failureOf([&] { (void)checkStore(folder.file()); }), Failure::storeDamaged);
}

TEST(Store, ALargeStoreWithDamagedOperatorsOrNewestPaymentIsReportedAsDamaged) {
    const TestFolder folder;
    fillLarge(folder.file());
    const auto size = static_cast<std::streamoff>(std::filesystem::file_size(folder.file()));
    std::filesystem::copy_file(folder.file(), folder.file("newest.db"));
    overwrite(folder.file(), 4096, std::string(8192, '\x5A'));
    Store operators(folder.file());
    EXPECT_EQ(failureOf([&] { rows(operators); }), Failure::storeDamaged);
    overwrite(folder.file("newest.db"), size - 4096 * 4, std::string(4096 * 4, '\x5A'));
    Store newest(folder.file("newest.db"));
    EXPECT_EQ(failureOf([&] { rows(newest); }), Failure::storeDamaged);
}

TEST(Store, TheFileOfAnotherProgramIsRefused) {
    const TestFolder folder;
    {
        Database other(folder.file());
        other.execute("CREATE TABLE theirs (x)");
    }
    Store store(folder.file());
    EXPECT_EQ(failureOf([&] { rows(store); }), Failure::storeDamaged);
    Database other(folder.file());
    EXPECT_NO_THROW(other.execute("SELECT x FROM theirs"));
}

TEST(Store, TheFileOfAnotherProgramThatCountsItsVersionsIsRefused) {
    const TestFolder folder;
    {
        Database other(folder.file());
        other.execute("CREATE TABLE theirs (x); PRAGMA user_version=1");
    }
    Store store(folder.file());
    EXPECT_EQ(failureOf([&] { rows(store); }), Failure::storeDamaged);
}

TEST(Store, AFileOfANewerVersionIsRefused) {
    const TestFolder folder;
    Store first(folder.file());
    first.read([](Database& database) { database.execute("PRAGMA user_version=5"); });
    Store second(folder.file());
    EXPECT_EQ(failureOf([&] { rows(second); }), Failure::storeTooNew);
}

TEST(Store, AFolderThatCannotBeMadeIsReportedAndTriedAgain) {
    const TestFolder folder;
    std::ofstream(folder.file("blocker")) << "a file where the folder should be";
    Store store(folder.file("blocker/hostdata.db"));
    EXPECT_EQ(failureOf([&] { rows(store); }), Failure::storeNotOpened);
    std::filesystem::remove(folder.file("blocker"));
    EXPECT_EQ(rows(store), 1);
}

TEST(HostDataError, NumberIsInTheApplicationErrorRange) {
    const HostDataError error(Failure::storeDamaged, "text");
    EXPECT_EQ(static_cast<std::uint32_t>(error.number()), 0x80040000U + 3002);
}

} // namespace
} // namespace tollvane::hostdata
