// Two tills that make or upgrade the same store at the same time.

#include "components/hostdata/store/Schema.h"
#include "components/hostdata/tests/TestSupport.h"

#include <sqlite3.h>

#include <string_view>

namespace tollvane::hostdata {
namespace {

// Another till, which is quicker by a hair: it does its work when the first one, which has seen
// what is to be done, is about to take the write lock.
class QuickerTill {
public:
    QuickerTill(Database& slower, std::string path) : path_(std::move(path)) {
        sqlite3_trace_v2(slower.handle(), SQLITE_TRACE_STMT, &QuickerTill::onStatement, this);
    }
    [[nodiscard]] int turns() const { return turns_; }

private:
    static int onStatement(unsigned /*kind*/, void* self, void* /*statement*/, void* text) {
        if (std::string_view(static_cast<const char*>(text)) == "BEGIN IMMEDIATE")
            static_cast<QuickerTill*>(self)->work();
        return 0;
    }
    void work() {
        ++turns_;
        Database database(path_);
        prepareSchema(database);
    }

    std::string path_;
    int turns_ = 0;
};

std::int64_t count(Database& database, const char* sql) {
    auto query = database.prepare(sql);
    return query.step() ? query.number(0) : -1;
}

TEST(Schema, TablesThatAnotherTillMadeMeanwhileAreNotMadeAgain) {
    const TestFolder folder;
    Database database(folder.file());
    const QuickerTill other(database, folder.file());
    prepareSchema(database);
    EXPECT_EQ(other.turns(), 1);
    EXPECT_EQ(count(database, "SELECT count(*) FROM store_settings"), 1);
}

TEST(Schema, AStoreThatAnotherTillUpgradedMeanwhileIsNotUpgradedAgain) {
    const TestFolder folder;
    Database database(folder.file());
    prepareSchema(database);
    database.execute("ALTER TABLE payments DROP COLUMN checksum; PRAGMA user_version=1");
    const QuickerTill other(database, folder.file());
    prepareSchema(database);
    EXPECT_EQ(other.turns(), 1);
    EXPECT_TRUE(isUpToDate(database));
    EXPECT_EQ(count(database, "SELECT count(checksum) FROM payments"), 0);
}

TEST(Schema, NoBitThatIsLostFromTheVersionLeavesOneThatIsTaken) {
    const TestFolder folder;
    Database database(folder.file());
    prepareSchema(database);
    const std::int64_t version = count(database, "PRAGMA user_version");
    for (int bit = 0; bit < 31; ++bit) {
        const std::int64_t damaged = version ^ (std::int64_t{1} << bit);
        database.execute(("PRAGMA user_version=" + std::to_string(damaged)).c_str());
        EXPECT_ANY_THROW(requireOurSchema(database)) << damaged;
    }
}

} // namespace
} // namespace tollvane::hostdata
