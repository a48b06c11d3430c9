#include "components/charge/tests/Shop.h"
#include "platform/Checksum.h"

#include <gtest/gtest.h>

#include <sstream>

namespace tollvane::charge {
namespace {

TEST(TransactionLog, AnOperationIsOneLineWithEverythingAPersonAsksFor) {
    Shop shop;
    shop.service->signIn("Mary Smith");
    ASSERT_TRUE(shop.charge("12.50"));
    ASSERT_EQ(2u, shop.logLines().size());
    const std::string line = shop.logLines()[1];
    const ProcessorAnswer& answer = shop.service->answer();
    for (const std::string& part :
         {std::string("2026-11-21 09:05:03"), std::string("  Mary Smith  "),
          std::string("  CHARGE  "), std::string("  TEST  "), std::string("  12.50  "),
          std::string("  ****1111  "), std::string("  APPROVED  "), std::string("  1/1/0  "),
          "  " + answer.approvalCode + "  ", "  " + answer.transactionId + "  ",
          "  " + answer.reasonText})
        EXPECT_NE(std::string::npos, line.find(part)) << part;
}

TEST(TransactionLog, EveryColumnHasItsPlace) {
    Shop shop;
    shop.service->signIn("Mary Smith");
    const std::string id = shop.charged("12.50");
    const std::string code = shop.service->answer().approvalCode;
    ASSERT_TRUE(shop.voidIt(id, "12.50"));
    const std::string voided = shop.service->answer().approvalCode;
    const std::string start = "2026-11-21 09:05:03  Mary Smith            ";
    ASSERT_EQ(3u, shop.logLines().size());
    EXPECT_TRUE(shop.logLines()[0].starts_with(start + "SIGN-IN  account merchant  #"));
    EXPECT_TRUE(shop.logLines()[1].starts_with(
        start + "CHARGE   TEST         12.50  ****1111  APPROVED  1/1/0    " + code + "  " + id +
        "  -           ["))
        << shop.logLines()[1];
    EXPECT_TRUE(shop.logLines()[2].starts_with(
        start + "VOID     TEST         12.50  -         APPROVED  1/1/0    " +
        (voided.empty() ? "-     " : voided) + "  " + shop.lastId() + "  " + id + "  ["))
        << shop.logLines()[2];
}

TEST(TransactionLog, LinesOfAllOutcomesStandInTheSameColumns) {
    Shop shop;
    const std::string id = shop.charged("12.50");
    shop.charge("7002.20");
    shop.charge("7003.60");
    shop.charge("7004.80");
    shop.refund(id, "2.50");
    shop.voidIt("9000000077");
    std::size_t place = std::string::npos;
    for (const std::string& line : shop.logLines()) {
        EXPECT_TRUE(place == std::string::npos || line.find("  [KEY") == place) << line;
        place = line.find("  [KEY");
    }
    EXPECT_EQ(6u, shop.logLines().size());
}

// Somebody empties the log between the look at its size and its reading.
class EmptiedFiles final : public FileStore {
public:
    using FileStore::read;
    std::string read(const FilePath&, std::uint64_t) override { return {}; }
    std::uint64_t size(const FilePath&) override { return 40; }
    void append(const FilePath&, std::string_view bytes) override { added += bytes; }
    void truncate(const FilePath&, std::uint64_t) override { ++cuts; }
    std::unique_ptr<Lock> lock(const FilePath&) override { return std::make_unique<Lock>(); }

    std::string added;
    int cuts = 0;
};

TEST(TransactionLog, ALogThatSomebodyEmptiesHasNothingToMend) {
    EmptiedFiles files;
    TransactionLog log(files, "log");

    log.writeSignIn({2026, 11, 21, 9, 5, 3, 0}, "Mary Smith", "");

    EXPECT_TRUE(files.added.starts_with("2026-11-21 09:05:03  Mary Smith")) << files.added;
    EXPECT_EQ(0, files.cuts);
}

TEST(TransactionLog, ASignInIsALine) {
    Shop shop;
    shop.service->signIn("Mary Smith");
    ASSERT_EQ(1u, shop.logLines().size());
    EXPECT_NE(std::string::npos, shop.logLines()[0].find("SIGN-IN"));
    EXPECT_NE(std::string::npos, shop.logLines()[0].find("account merchant"));
}

TEST(TransactionLog, OddNamesCannotBreakALine) {
    Shop shop;
    shop.service->signIn("Mary\r\n2026-01-01  faked\tline   x ");
    ASSERT_EQ(1u, shop.logLines().size());
    EXPECT_NE(std::string::npos, shop.logLines()[0].find("Mary 2026-01-01 faked line x  "));
    shop.service->signIn("");
    EXPECT_NE(std::string::npos, shop.logLines()[1].find("  -  "));
}

TEST(TransactionLog, NoFileEverHoldsCardData) {
    Shop shop;
    shop.service->signIn("4111111111111111");
    shop.fill("12.50");
    TransactionFields& fields = shop.service->fields();
    fields.set(Field::CardCode, "8675");
    fields.set(Field::TrackOne, Shop::track);
    fields.set(Field::InvoiceNumber, "4111111111111111");
    fields.set(Field::Description, "4111111111111111");
    ASSERT_TRUE(shop.service->run(Operation::Charge, {}));
    shop.refund("4111111111111111", "1.00", "4111111111111111");
    shop.voidIt("4111 1111 1111 1111");
    for (const char* secret :
         {"4111111111111111", "411111111111", "8675", "SMITH/JOHN", "1000000000123", "4111 1111"})
        EXPECT_FALSE(shop.files.anyContains(secret)) << secret;
    EXPECT_TRUE(shop.files.anyContains("1111")) << "the last four digits are there";
}

TEST(TransactionLog, AHalfWrittenLineIsMarkedAndNotContinued) {
    Shop shop;
    shop.files.contents["logs/ZENDACARD.LOG"] = "2026-11-20 18:00:00  Somebody  CHAR";
    ASSERT_TRUE(shop.charge("12.50"));
    ASSERT_EQ(2u, shop.logLines().size());
    EXPECT_EQ("2026-11-20 18:00:00  Somebody  CHAR  (interrupted)", shop.logLines()[0]);
}

TEST(TransactionLog, ALineThatBrokeOffBehindItsFirstCharacterIsMarkedToo) {
    Shop shop;
    shop.files.contents["logs/ZENDACARD.LOG"] = "2";
    ASSERT_TRUE(shop.charge("12.50"));
    ASSERT_EQ(2u, shop.logLines().size());
    EXPECT_EQ("2  (interrupted)", shop.logLines()[0]);
}

TEST(TransactionLog, EveryLineEndsWithAChecksumOfTheRest) {
    Shop shop;
    shop.service->signIn("Mary Smith");
    ASSERT_TRUE(shop.charge("12.50"));
    ASSERT_EQ(2u, shop.logLines().size());
    for (const std::string& line : shop.logLines()) {
        const std::size_t check = line.rfind("  #");
        ASSERT_NE(std::string::npos, check);
        EXPECT_EQ(line.substr(check + 3), checksumText(line.substr(0, check)));
    }
}

// The operation key in the first line of a log that tells one.
std::string firstKey(const std::string& log) {
    const std::size_t start = log.find("[KEY") + 1;
    return log.substr(start, log.find(']') - start);
}

TEST(TransactionLog, AnOutcomeWhoseLineIsDamagedIsToldAgain) {
    Shop shop;
    ASSERT_TRUE(shop.charge("12.50"));
    std::string& log = shop.files.contents["logs/ZENDACARD.LOG"];
    TransactionLog reader(shop.files, "logs/ZENDACARD.LOG");
    const std::string key = firstKey(log);
    EXPECT_TRUE(reader.hasOutcome(key));
    log[log.find("12.50")] = '2';
    EXPECT_FALSE(reader.hasOutcome(key));
}

TEST(TransactionLog, AnOutcomeWhoseLineLacksItsEndIsToldAgain) {
    Shop shop;
    ASSERT_TRUE(shop.charge("12.50"));
    std::string& log = shop.files.contents["logs/ZENDACARD.LOG"];
    TransactionLog reader(shop.files, "logs/ZENDACARD.LOG");
    const std::string key = firstKey(log);
    ASSERT_TRUE(reader.hasOutcome(key));
    log.resize(log.size() - 2);
    EXPECT_FALSE(reader.hasOutcome(key));
}

TEST(TransactionLog, TheBlanksOfAnInterruptedProbeAreRemoved) {
    Shop shop;
    shop.files.contents["logs/ZENDACARD.LOG"] = "first\r\n" + std::string(300, ' ');
    ASSERT_TRUE(shop.charge("12.50"));
    ASSERT_EQ(2u, shop.logLines().size());
    EXPECT_EQ("first", shop.logLines()[0]);
    EXPECT_EQ('2', shop.logLines()[1][0]);
}

TEST(TransactionLog, FolderAndNameAreThoseOfTheSettings) {
    Shop shop;
    shop.settings.settings.logFolder = "elsewhere";
    shop.settings.settings.logFileName = "cards.txt";
    ASSERT_TRUE(shop.charge("12.50"));
    EXPECT_FALSE(shop.files.read("elsewhere/cards.txt").empty());
    EXPECT_TRUE(shop.log().empty());
}

TEST(Settings, AFileNameIsPlain) {
    for (const char* good : {"ZENDACARD.LOG", "my log.txt", "a", "console.log", "com10", "com0",
                             "lpt~", "comx", "abc1", "lp11"})
        EXPECT_TRUE(isPlainFileName(good)) << good;
    for (const char* bad : {"", "a\\b", "a/b", "a:b", "a*", "CON", "nul.txt", "prn", "Aux.log",
                            "Com1.log", "LPT9", "a.", "a ", "..", "a\tb"})
        EXPECT_FALSE(isPlainFileName(bad)) << bad;
    EXPECT_TRUE(isPlainFileName(std::string(255, 'a')));
    EXPECT_FALSE(isPlainFileName(std::string(256, 'a')));
}

} // namespace
} // namespace tollvane::charge
