#include "components/logviewer/core/LogLine.h"

#include "components/charge/core/TransactionLog.h"
#include "components/charge/tests/MemoryFiles.h"
#include "components/logviewer/core/LogAmount.h"
#include "components/logviewer/tests/LogText.h"

#include <gtest/gtest.h>

#include <limits>

namespace tollvane::logviewer {
namespace {

std::string withoutEnd(std::string line) {
    line.resize(line.size() - 2);
    return line;
}

LineKind kindOf(const std::string& line) {
    return parseLine(line).kind;
}

TEST(LogLine, EveryColumnOfAnOperationIsFound) {
    const std::string text = withoutEnd(lineOf({.type = "REFUND", .reference = "1000000000"}));
    const LogLine line = parseLine(text);
    EXPECT_EQ(line.kind, LineKind::Refund);
    EXPECT_EQ(line.result, LineResult::Approved);
    EXPECT_EQ(line.mode, LineMode::Live);
    EXPECT_EQ(line.day, 20261121);
    EXPECT_EQ(line.amount, cents(1250));
    EXPECT_EQ(line.date, "2026-11-21");
    EXPECT_EQ(line.time, "09:05:03");
    EXPECT_EQ(line.operatorName, "Olive Trent");
    EXPECT_EQ(line.amountText, "12.50");
    EXPECT_EQ(line.card, "****1881");
    EXPECT_EQ(line.codes, "1/1/0");
    EXPECT_EQ(line.approval, "123456");
    EXPECT_EQ(line.transaction, "1000000001");
    EXPECT_EQ(line.reference, "1000000000");
    EXPECT_EQ(line.text, "The transaction has been approved.");
}

TEST(LogLine, ADashIsAnEmptyColumn) {
    EXPECT_EQ(parseLine(withoutEnd(lineOf({.who = "-"}))).operatorName, "");
    EXPECT_EQ(parseLine(withoutEnd(lineOf({}))).reference, "");
}

TEST(LogLine, ASignInIsNoOperation) {
    const LogLine line =
        parseLine("2026-11-21 09:05:03  Olive Trent           SIGN-IN  account 4711");
    EXPECT_EQ(line.kind, LineKind::SignIn);
    EXPECT_EQ(line.operatorName, "Olive Trent");
    EXPECT_EQ(line.text, "account 4711");
    EXPECT_EQ(line.mode, LineMode::None);
}

TEST(LogLine, EveryTypeAndResultIsKnown) {
    EXPECT_EQ(kindOf(withoutEnd(lineOf({.type = "CHARGE"}))), LineKind::Charge);
    EXPECT_EQ(kindOf(withoutEnd(lineOf({.type = "VOICE"}))), LineKind::Voice);
    EXPECT_EQ(kindOf(withoutEnd(lineOf({.type = "VOID"}))), LineKind::Void);
    EXPECT_EQ(parseLine(withoutEnd(lineOf({.result = "DECLINED"}))).result, LineResult::Declined);
    EXPECT_EQ(parseLine(withoutEnd(lineOf({.result = "ERROR"}))).result, LineResult::Error);
    EXPECT_EQ(parseLine(withoutEnd(lineOf({.result = "HELD"}))).result, LineResult::Held);
    EXPECT_EQ(parseLine(withoutEnd(lineOf({.result = "UNKNOWN"}))).result, LineResult::Unknown);
}

TEST(LogLine, WhatIsNotALineOfTheLogIsDamaged) {
    const std::string good = withoutEnd(lineOf({}));
    EXPECT_EQ(kindOf("hello"), LineKind::Damaged);
    EXPECT_EQ(kindOf(withoutEnd(lineOf({.moment = "2026-13-21 09:05:03"}))), LineKind::Damaged);
    EXPECT_EQ(kindOf(withoutEnd(lineOf({.moment = "2026-11-21 24:05:03"}))), LineKind::Damaged);
    EXPECT_EQ(kindOf(withoutEnd(lineOf({.moment = "2026/11/21 09:05:03"}))), LineKind::Damaged);
    EXPECT_EQ(kindOf(withoutEnd(lineOf({.type = "CHARG"}))), LineKind::Damaged);
    EXPECT_EQ(kindOf(withoutEnd(lineOf({.mode = "REAL"}))), LineKind::Damaged);
    EXPECT_EQ(kindOf(withoutEnd(lineOf({.amount = "12,50"}))), LineKind::Damaged);
    EXPECT_EQ(kindOf(withoutEnd(lineOf({.result = "APPROVE"}))), LineKind::Damaged);
    EXPECT_EQ(kindOf(good + "  one column more"), LineKind::Damaged);
    EXPECT_EQ(kindOf("x" + good), LineKind::Damaged);
}

TEST(LogLine, AMomentIsAMomentOfTheCalendar) {
    for (const char* moment : {"x026-11-21 09:05:03", "2x26-11-21 09:05:03", "20x6-11-21 09:05:03",
                               "202/-11-21 09:05:03", "2026-:1-21 09:05:03", "2026-00-21 09:05:03",
                               "2026-11-00 09:05:03", "2026-11-32 09:05:03", "2026-11-2  09:05:03",
                               "2026-11-21 0x:05:03", "2026-11-21 09:60:03", "2026-11-21 09:05:61",
                               "2026-11-21 09:05:0", "2026-11-21 09.05:03"})
        EXPECT_EQ(kindOf(withoutEnd(lineOf({.moment = moment}))), LineKind::Damaged) << moment;
    for (const char* moment : {"0000-01-01 00:00:00", "9999-12-31 23:59:60"})
        EXPECT_EQ(kindOf(withoutEnd(lineOf({.moment = moment}))), LineKind::Charge) << moment;
    EXPECT_EQ(parseLine(withoutEnd(lineOf({.moment = "1999-12-31 23:59:60"}))).day, 19991231);
}

TEST(LogLine, TheKeyStandsInBrackets) {
    const std::string good = withoutEnd(lineOf({}));
    const std::string key = "[0123456789abcdef0123]";
    for (const char* other : {"[]", "0123456789]", "[0123456789", "-"}) {
        std::string line = good;
        line.replace(line.find(key), key.size(), other);
        EXPECT_EQ(kindOf(line), LineKind::Damaged) << other;
    }
    std::string shortest = good;
    shortest.replace(shortest.find(key), key.size(), "[k]");
    EXPECT_EQ(kindOf(shortest), LineKind::Charge);
}

TEST(LogLine, ALineCutAnywhereIsDamaged) {
    const std::string good = withoutEnd(lineOf({}));
    const std::size_t lastColumn = good.find("The transaction");
    for (std::size_t length = 1; length < lastColumn; ++length)
        EXPECT_EQ(kindOf(good.substr(0, length)), LineKind::Damaged) << length;
}

TEST(LogLine, AnInterruptedLineIsDamagedThoughItIsWhole) {
    const std::string line = withoutEnd(lineOf({})) + "  (interrupted)";
    EXPECT_EQ(parseLine(line).kind, LineKind::Damaged);
    EXPECT_EQ(parseLine(line).text, line);
}

TEST(LogLine, TheChecksumIsNoColumn) {
    const std::string text = withoutEnd(checkedLineOf({}));
    const LogLine line = parseLine(text);
    EXPECT_EQ(line.kind, LineKind::Charge);
    EXPECT_TRUE(line.isChecked);
    EXPECT_EQ(line.text, "The transaction has been approved.");
    EXPECT_FALSE(parseLine(withoutEnd(lineOf({}))).isChecked);
}

TEST(LogLine, BlanksAreNoLine) {
    EXPECT_EQ(kindOf(""), LineKind::Blank);
    EXPECT_EQ(kindOf(std::string(512, ' ')), LineKind::Blank);
}

TEST(LogLine, ZerosAreDamage) {
    EXPECT_EQ(kindOf(std::string("  \0 ", 4)), LineKind::Damaged);
}

TEST(LogLine, WhatTheChargeComponentWritesIsRead) {
    charge::MemoryFiles files;
    charge::TransactionLog log(files, "log");
    charge::OperationNote note;
    note.key = "0123456789abcdef0123";
    note.date = "2026-11-21";
    note.time = "23:59:59";
    note.operatorName = "Olive  Trent-Very-Long-Name";
    note.operation = charge::Operation::VoiceCapture;
    note.amount = Money::fromScaled(99999999900);
    note.lastFour = "1881";
    charge::ProcessorAnswer answer{1,    1,           0, "The transaction has been approved.",
                                   "A1", "9000000001"};
    log.writeOperation(note, answer, charge::Settlement::AfterInterruption);
    log.writeUnknown(note);
    log.writeSignIn({}, "", "");
    const LogIndex index = indexOf(files.read("log", 0));
    ASSERT_EQ(index.rows().size(), 3U);
    EXPECT_EQ(index.rows()[0].kind, LineKind::Voice);
    EXPECT_EQ(index.rows()[0].effect, 99999999900);
    EXPECT_EQ(index.rows()[1].result, LineResult::Unknown);
    EXPECT_EQ(index.rows()[2].kind, LineKind::SignIn);
}

TEST(LogAmount, AmountsAreExact) {
    EXPECT_EQ(amountFromText("0.01"), cents(1));
    EXPECT_EQ(amountFromText("-0.05"), -cents(5));
    EXPECT_EQ(amountFromText("0.1234"), 1234);
    EXPECT_EQ(amountFromText("922337203685477.5807"), 9223372036854775807);
}

TEST(LogAmount, AnythingElseIsNoAmount) {
    for (const char* text : {"", "-", ".", "1", "1.", ".50", "1.5", "1.23456", "1.2x", "1,00",
                             " 1.00", "1.00 ", "--1.00", "922337203685477.5808", "1e3.00"})
        EXPECT_EQ(amountFromText(text), std::nullopt) << text;
}

TEST(LogAmount, TextHasTwoDecimalsUnlessThereIsLessThanACent) {
    EXPECT_EQ(amountText(cents(123450)), "1234.50");
    EXPECT_EQ(amountText(-cents(5)), "-0.05");
    EXPECT_EQ(amountText(1234), "0.1234");
    EXPECT_EQ(amountText(0), "0.00");
    EXPECT_EQ(amountText(std::numeric_limits<std::int64_t>::min()), "-922337203685477.5808");
}

TEST(LogAmount, ASumThatBecomesTooLargeIsNotTold) {
    Sum sum;
    sum.add(std::numeric_limits<std::int64_t>::max());
    EXPECT_TRUE(sum.value());
    sum.add(1);
    EXPECT_FALSE(sum.value());
    sum.add(-1);
    EXPECT_FALSE(sum.value());
}

TEST(LogAmount, ASumBelowTheLeastIsNotTold) {
    constexpr auto least = std::numeric_limits<std::int64_t>::min();
    Sum sum;
    sum.add(least);
    EXPECT_EQ(sum.value(), least);
    sum.add(-1);
    EXPECT_FALSE(sum.value());
    Sum less;
    less.subtract(1);
    EXPECT_EQ(less.value(), -1);
    less.subtract(-3);
    EXPECT_EQ(less.value(), 2);
    less.subtract(std::numeric_limits<std::int64_t>::max());
    less.subtract(3);
    EXPECT_EQ(less.value(), least);
    less.subtract(1);
    EXPECT_FALSE(less.value());
}

} // namespace
} // namespace tollvane::logviewer
