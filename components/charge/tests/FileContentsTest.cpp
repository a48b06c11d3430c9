// What stands in journal and ledger is taken as it is written, or refused as a whole.
#include "components/charge/core/Failure.h"
#include "components/charge/core/Journal.h"
#include "components/charge/core/Ledger.h"
#include "components/charge/tests/Shop.h"
#include "platform/Checksum.h"

#include <gtest/gtest.h>

namespace tollvane::charge {
namespace {

const Record openRecord = {"open",   "KEYA", "2026-11-21", "09:05:03", "Mary",
                           "CHARGE", "test", "12.50",      "1111",     ""};
const Record answeredRecord = {"answered", "KEYA", "1", "1", "0", "A1B2C3", "9000000001", "Yes."};
const Record entryRecord = {"1",    "KEYA", "CHARGE", "1795252000", "20261121",   "12.50",
                            "1111", "0327", "",       "",           "",           "1",
                            "1",    "0",    "A1B2C3", "9000000001", "As answered"};

std::vector<OpenOperation> journalOf(const std::vector<Record>& records) {
    MemoryFiles files;
    for (const Record& each : records)
        files.contents["journal"] += encodeRecord(each);
    return Journal(files, "journal").load();
}

std::vector<LedgerEntry> ledgerOf(const Record& record) {
    MemoryFiles files;
    files.contents["ledger"] = encodeRecord(record);
    Ledger ledger(files, "ledger");
    ledger.load();
    return ledger.entries();
}

Record changed(Record record, std::size_t field, const std::string& text) {
    record.at(field) = text;
    return record;
}

Record shortened(Record record) {
    record.pop_back();
    return record;
}

template <class Work>
bool isNotUnderstood(Work&& work) {
    try {
        work();
        return false;
    } catch (const com::ComponentError& error) {
        EXPECT_EQ(failurenumber::damagedFile, error.number());
        return true;
    }
}

TEST(Journal, AnAnswerBelongsToItsOperation) {
    const auto open = journalOf({openRecord, answeredRecord});
    ASSERT_EQ(1u, open.size());
    EXPECT_EQ("KEYA", open[0].note.key);
    EXPECT_EQ("2026-11-21", open[0].note.date);
    EXPECT_EQ("Mary", open[0].note.operatorName);
    EXPECT_TRUE(open[0].note.testMode);
    EXPECT_EQ(Money::fromScaled(125'000), open[0].note.amount);
    ASSERT_TRUE(open[0].answer.has_value());
    EXPECT_EQ((ProcessorAnswer{1, 1, 0, "Yes.", "A1B2C3", "9000000001"}), *open[0].answer);
}

TEST(Journal, AnswersAndEndsOfOperationsThatAreClosedSayNothing) {
    EXPECT_TRUE(journalOf({answeredRecord, {"closed", "KEYA"}}).empty());
    EXPECT_EQ(1u, journalOf({openRecord, {"closed", "KEYB"}}).size());
    EXPECT_TRUE(journalOf({openRecord, {"closed", "KEYA"}}).empty());
}

TEST(Journal, ARecordOfAnotherFormIsNotUnderstood) {
    for (const Record& record :
         {shortened(openRecord), changed(openRecord, 5, "REBATE"), changed(openRecord, 0, "opened"),
          Record{"closed"}, Record{"closed", "KEYA", ""}})
        EXPECT_TRUE(isNotUnderstood([&] { journalOf({record}); })) << record[0];
    for (const Record& record : {shortened(answeredRecord), changed(answeredRecord, 2, "one"),
                                 changed(answeredRecord, 3, "1 "), changed(answeredRecord, 4, "")})
        EXPECT_TRUE(isNotUnderstood([&] { journalOf({openRecord, record}); }));
}

TEST(Ledger, AnEntryIsTakenAsItIsWritten) {
    const auto entries = ledgerOf(entryRecord);
    ASSERT_EQ(1u, entries.size());
    EXPECT_EQ(1'795'252'000, entries[0].epochSeconds);
    EXPECT_EQ("0327", entries[0].expiry);
    EXPECT_FALSE(entries[0].settledAtOnce);
    EXPECT_TRUE(entries[0].approved());
    EXPECT_EQ("As answered", entries[0].answer.reasonText);
}

TEST(Ledger, AnEntryOfAnotherFormIsNotUnderstood) {
    for (const Record& record :
         {shortened(entryRecord), changed(entryRecord, 0, "2"), changed(entryRecord, 2, "REBATE"),
          changed(entryRecord, 3, "soon"), changed(entryRecord, 11, "1x")})
        EXPECT_TRUE(isNotUnderstood([&] { ledgerOf(record); }));
}

TEST(Ledger, AnUnknownExpiryIsNotAnEarlierOne) {
    MemoryFiles files;
    files.contents["ledger"] = encodeRecord(changed(entryRecord, 7, ""));
    Ledger ledger(files, "ledger");
    ledger.load();
    ProcessorRequest request;
    request.time.epochSeconds = 1'795'252'000;
    request.amount = Money::fromScaled(125'000);
    request.cardNumber = SecretText("4111111111111111");
    request.duplicateWindowSeconds = 120;
    EXPECT_NE(nullptr, ledger.duplicateOf(request)) << "nor has this one an expiry";
    request.expiry = Expiry{3, 2027};
    EXPECT_EQ(nullptr, ledger.duplicateOf(request));
}

TEST(Ledger, AnEntryOfAMuchLaterTimeIsNoDuplicate) {
    Shop shop;
    ASSERT_TRUE(shop.charge("12.50"));
    shop.clock.forwardSeconds(-120);
    EXPECT_TRUE(shop.charge("12.50")) << "the clock was set back";
}

TEST(RecordFile, AnEscapeWithNothingBehindItIsItself) {
    const std::string line = checksumText("a\\") + " a\\\n";
    EXPECT_EQ((std::vector<Record>{{"a\\"}}), decodeRecords(line).records);
}

TEST(TransactionLog, TheShortestAndFirstLineIsLookedAtToo) {
    MemoryFiles files;
    files.contents["log"] = "[A]\r\n";
    EXPECT_FALSE(TransactionLog(files, "log").hasOutcome("A"));
    files.contents["log"] = "[A]  #" + checksumText("[A]") + "\r\n";
    EXPECT_TRUE(TransactionLog(files, "log").hasOutcome("A"));
}

TEST(TransactionLog, ControlCharactersAndBlanksInFrontAreLeftOut) {
    Shop shop;
    shop.service->signIn(" \tMary\x7FSmith\x01");
    ASSERT_EQ(1u, shop.logLines().size());
    EXPECT_NE(std::string::npos, shop.logLines()[0].find("  Mary Smith  ")) << shop.logLines()[0];
}

TEST(Charge, ASwipeWithoutAReadableExpiryNeedsAnExpiry) {
    Shop shop;
    shop.fill("12.50");
    shop.service->fields().clear(Field::ExpirationDate);
    shop.service->fields().set(Field::TrackOne, "%B4111111111111111^SMITH/JOHN^99?");
    EXPECT_FALSE(shop.service->run(Operation::Charge, {}));
    EXPECT_EQ(32, shop.reason());
}

TEST(VoiceCapture, SmallLettersAreLettersAndSignsAreNot) {
    for (const auto& [code, reason] :
         {std::pair("ab12zz", 1), std::pair("AZ09az", 1), std::pair("ab{12z", 37),
          std::pair("ab`12z", 37), std::pair("AB[12Z", 37), std::pair("AB@12Z", 37),
          std::pair("AB/12Z", 37), std::pair("AB:12Z", 37)}) {
        Shop shop;
        shop.fill("12.50");
        shop.service->run(Operation::VoiceCapture, code);
        EXPECT_EQ(reason, shop.reason()) << code;
    }
}

TEST(Refund, OfAVoiceCaptureIsOneOfACharge) {
    Shop shop;
    shop.fill("12.50");
    ASSERT_TRUE(shop.service->run(Operation::VoiceCapture, "A1B2C3"));
    EXPECT_TRUE(shop.refund(shop.lastId(), "12.50"));
}

TEST(Refund, OfNothingOrOfARefundIsAnErrorAnswer) {
    Shop shop;
    const std::string id = shop.charged("12.50");
    EXPECT_FALSE(shop.refund(id, "0.00"));
    EXPECT_EQ(30, shop.reason());
    ASSERT_TRUE(shop.refund(id, "2.50"));
    EXPECT_FALSE(shop.refund(shop.lastId(), "1.00"));
    EXPECT_EQ(51, shop.reason());
}

} // namespace
} // namespace tollvane::charge
