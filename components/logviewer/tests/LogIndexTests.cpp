#include "components/logviewer/core/LogIndex.h"

#include "components/logviewer/tests/LogText.h"

#include <gtest/gtest.h>

#include <limits>

namespace tollvane::logviewer {
namespace {

TEST(LogIndex, RowsTellWhereTheirLinesAre) {
    const std::string first = lineOf({});
    const std::string second = lineOf({.who = "Ben"});
    const LogIndex index = indexOf(first + second);
    ASSERT_EQ(index.rows().size(), 2U);
    EXPECT_EQ(index.rows()[0].offset, 0U);
    EXPECT_EQ(index.rows()[1].offset, first.size());
    EXPECT_EQ(index.rows()[1].length, second.size() - 2);
    EXPECT_EQ(index.taken(), first.size() + second.size());
}

TEST(LogIndex, PiecesGiveTheSameAsTheWhole) {
    std::string text;
    for (int i = 0; i < 20; ++i)
        text += lineOf({.who = i % 3 ? "Ben" : "Olive Trent", .amount = std::to_string(i) + ".00"});
    const LogIndex whole = indexOf(text);
    for (std::size_t piece : {1U, 7U, 160U, 1000U}) {
        LogIndex index;
        std::string waiting;
        for (std::size_t at = 0; at < text.size(); at += piece) {
            waiting += text.substr(at, piece);
            waiting.erase(0, index.feed(waiting));
            index.finish(waiting);
        }
        ASSERT_EQ(index.rows().size(), whole.rows().size()) << piece;
        for (std::size_t i = 0; i < whole.rows().size(); ++i) {
            EXPECT_EQ(index.rows()[i].offset, whole.rows()[i].offset);
            EXPECT_EQ(index.rows()[i].effect, whole.rows()[i].effect);
            EXPECT_EQ(index.rows()[i].operatorId, whole.rows()[i].operatorId);
        }
    }
}

TEST(LogIndex, ALineWithoutItsEndIsDamagedUntilTheRestComes) {
    const std::string line = lineOf({});
    LogIndex index;
    index.finish(line.substr(0, 50));
    ASSERT_EQ(index.rows().size(), 1U);
    EXPECT_EQ(index.rows()[0].kind, LineKind::Damaged);
    EXPECT_EQ(index.rows()[0].length, 50U);
    index.feed(line);
    ASSERT_EQ(index.rows().size(), 1U);
    EXPECT_EQ(index.rows()[0].kind, LineKind::Charge);
}

TEST(LogIndex, BlanksAtTheEndAreNotALine) {
    EXPECT_EQ(indexOf(lineOf({}) + std::string(512, ' ')).rows().size(), 1U);
}

TEST(LogIndex, EmptyLinesAreLeftOut) {
    const LogIndex index = indexOf("\r\n\n" + lineOf({}) + "\n");
    ASSERT_EQ(index.rows().size(), 1U);
    EXPECT_EQ(index.rows()[0].offset, 3U);
}

TEST(LogIndex, AnEmptyFileHasNoRows) {
    EXPECT_TRUE(indexOf("").rows().empty());
}

TEST(LogIndex, OverlongTextIsOneDamagedLine) {
    LogIndex index;
    index.feedDamaged(std::string(100, 'x'));
    index.feed("\n" + lineOf({}));
    ASSERT_EQ(index.rows().size(), 2U);
    EXPECT_EQ(index.rows()[0].kind, LineKind::Damaged);
    EXPECT_EQ(index.rows()[1].offset, 101U);
}

TEST(LogIndex, OverlongTextTakesThePlaceOfTheTailItBeganAs) {
    LogIndex index;
    index.finish("the beginning of something");
    index.feedDamaged("the beginning of something too long");
    ASSERT_EQ(index.rows().size(), 1U);
    EXPECT_EQ(index.rows()[0].length, 35U);
}

TEST(LogIndex, EachOperatorHasOneNumber) {
    const LogIndex index = indexOf(lineOf({.who = "Ben"}) + lineOf({.who = "-"}) +
                                   lineOf({.who = "Olive Trent"}) + lineOf({.who = "Ben"}));
    EXPECT_EQ(index.operators(), (std::vector<std::string>{"", "Ben", "Olive Trent"}));
    EXPECT_EQ(index.rows()[0].operatorId, index.rows()[3].operatorId);
    EXPECT_EQ(index.rows()[1].operatorId, 0);
}

TEST(LogTotals, ChargesRefundsAndNetAreExactToTheCent) {
    std::string text;
    for (int i = 0; i < 1000; ++i)
        text += lineOf({.amount = "0.10"});
    text += lineOf({.type = "VOICE", .amount = "1.01"});
    text += lineOf({.type = "REFUND", .amount = "0.03"});
    const LogTotals totals = totalsOf(indexOf(text));
    EXPECT_EQ(totals.lines, 1002U);
    EXPECT_EQ(totals.live.charges.count, 1001U);
    EXPECT_EQ(totals.live.charges.sum.value(), cents(10101));
    EXPECT_EQ(totals.live.refunds.count, 1U);
    EXPECT_EQ(totals.live.refunds.sum.value(), cents(3));
    EXPECT_EQ(totals.live.net(), cents(10098));
}

TEST(LogTotals, OnlyApprovedLinesAreAddedUp) {
    std::string text;
    for (const char* result : {"DECLINED", "ERROR", "HELD", "UNKNOWN"})
        text += lineOf({.result = result});
    const LogTotals totals = totalsOf(indexOf(text));
    EXPECT_EQ(totals.lines, 4U);
    EXPECT_EQ(totals.live.charges.count, 0U);
    EXPECT_EQ(totals.live.net(), 0);
}

TEST(LogTotals, AnUnknownOutcomeIsCountedOnceItIsTold) {
    const LogTotals totals = totalsOf(indexOf(lineOf({.result = "UNKNOWN", .transaction = "-"}) +
                                              lineOf({.result = "APPROVED"})));
    EXPECT_EQ(totals.live.charges.count, 1U);
    EXPECT_EQ(totals.live.net(), cents(1250));
}

TEST(LogTotals, DamagedLinesAreNotCounted) {
    const LogTotals totals = totalsOf(indexOf(lineOf({}) + "12.50\r\n" + lineOf({}).substr(0, 60)));
    EXPECT_EQ(totals.lines, 3U);
    EXPECT_EQ(totals.damaged, 2U);
    EXPECT_EQ(totals.live.net(), cents(1250));
}

TEST(LogTotals, NoChangedBitOfALineIsCounted) {
    const std::string before = checkedLineOf({.amount = "1.00"});
    const std::string line = checkedLineOf({.amount = "20.00"});
    for (std::size_t place = 0; place < line.size(); ++place) {
        for (int bit = 0; bit < 8; ++bit) {
            std::string changed = line;
            changed[place] = static_cast<char>(changed[place] ^ (1 << bit));
            const LogTotals totals = totalsOf(indexOf(before + changed));
            EXPECT_EQ(totals.live.net(), cents(100)) << place << ", bit " << bit;
            EXPECT_GE(totals.damaged, 1U) << place << ", bit " << bit;
        }
    }
}

TEST(LogIndex, ALogThatHasBegunToHaveChecksumsGoesOnWithThem) {
    const LogTotals totals =
        totalsOf(indexOf(lineOf({.amount = "1.00"}) + checkedLineOf({.amount = "20.00"}) +
                         lineOf({.amount = "300.00"})));
    EXPECT_EQ(totals.live.net(), cents(2100));
    EXPECT_EQ(totals.damaged, 1U);
}

TEST(LogIndex, ZerosAreDamageWithALineEndAndWithout) {
    const std::string zeros(80, '\0');
    EXPECT_EQ(totalsOf(indexOf(zeros + "\r\n")).damaged, 1U);
    EXPECT_EQ(totalsOf(indexOf(checkedLineOf({}) + zeros)).damaged, 1U);
}

TEST(LogTotals, ANetThatIsTooLargeIsNotTold) {
    const std::string least = "-922337203685477.5807";
    const std::string refunds = lineOf({.type = "REFUND", .amount = least}) +
                                lineOf({.type = "REFUND", .amount = "-0.0001"});
    EXPECT_FALSE(totalsOf(indexOf(refunds)).live.net());
    EXPECT_EQ(totalsOf(indexOf(refunds + lineOf({.amount = "-0.0001"}))).live.net(),
              std::numeric_limits<std::int64_t>::max());
}

TEST(LogTotals, TestAndLiveMoneyIsNeverAddedTogether) {
    const LogTotals totals =
        totalsOf(indexOf(lineOf({.mode = "TEST", .amount = "5.00"}) + lineOf({.amount = "7.00"})));
    EXPECT_EQ(totals.test.net(), cents(500));
    EXPECT_EQ(totals.live.net(), cents(700));
}

TEST(LogTotals, AVoidTakesTheChargeBackWhateverItsOwnAmount) {
    const LogTotals totals =
        totalsOf(indexOf(lineOf({.amount = "20.00", .transaction = "1000000007"}) +
                         lineOf({.type = "VOID",
                                 .amount = "0.00",
                                 .transaction = "1000000008",
                                 .reference = "1000000007"})));
    EXPECT_EQ(totals.live.voids.count, 1U);
    EXPECT_EQ(totals.live.voids.sum.value(), cents(2000));
    EXPECT_EQ(totals.live.net(), 0);
}

TEST(LogTotals, AVoidedRefundIsGivenBackToTheShop) {
    const LogTotals totals = totalsOf(
        indexOf(lineOf({.amount = "20.00", .transaction = "1000000007"}) +
                lineOf({.type = "REFUND", .amount = "5.00", .transaction = "1000000008"}) +
                lineOf({.type = "VOID", .transaction = "1000000009", .reference = "1000000008"})));
    EXPECT_EQ(totals.live.voids.sum.value(), -cents(500));
    EXPECT_EQ(totals.live.net(), cents(2000));
}

TEST(LogTotals, AVoidFindsItsTransactionInItsOwnModeAndAnyOrder) {
    const LogTotals totals =
        totalsOf(indexOf(lineOf({.mode = "TEST", .amount = "3.00", .transaction = "7"}) +
                         lineOf({.amount = "9.00", .transaction = "9"}) +
                         lineOf({.amount = "4.00", .transaction = "7"}) +
                         lineOf({.type = "VOID", .transaction = "10", .reference = "7"})));
    EXPECT_EQ(totals.live.voids.sum.value(), cents(400));
    EXPECT_EQ(totals.test.net(), cents(300));
}

TEST(LogTotals, AVoidOfATransactionOfAnotherLogTakesNothingBack) {
    const LogTotals totals =
        totalsOf(indexOf(lineOf({}) + lineOf({.type = "VOID", .reference = "5"})));
    EXPECT_EQ(totals.live.voids.count, 1U);
    EXPECT_EQ(totals.live.net(), cents(1250));
}

TEST(LogTotals, AVoidWhoseReferenceIsNoIdTakesNothingBack) {
    for (const char* reference : {"-", "10000000001x", "12.3", "x", "12345678901234567890"}) {
        const LogTotals totals = totalsOf(
            indexOf(lineOf({.amount = "9.00", .transaction = "12"}) +
                    lineOf({.amount = "5.00", .transaction = reference}) +
                    lineOf({.type = "VOID", .transaction = "13", .reference = reference})));
        EXPECT_EQ(totals.live.net(), cents(1400)) << reference;
        EXPECT_EQ(totals.live.voids.count, 1U);
    }
}

TEST(LogTotals, ASumThatIsTooLargeIsTheOnlyOneThatIsNotTold) {
    const std::string most = "922337203685477.5807";
    const auto twice = [&](const char* type) {
        return totalsOf(indexOf(lineOf({.type = type, .amount = most, .transaction = "1"}) +
                                lineOf({.type = type, .amount = most, .transaction = "2"})));
    };
    EXPECT_FALSE(twice("CHARGE").live.charges.sum.value());
    EXPECT_FALSE(twice("CHARGE").live.net());
    EXPECT_FALSE(twice("REFUND").live.refunds.sum.value());
    EXPECT_FALSE(twice("REFUND").live.net());
    EXPECT_EQ(twice("REFUND").live.charges.sum.value(), 0);
    ModeTotals voids;
    voids.voids.add(std::numeric_limits<std::int64_t>::max());
    voids.voids.add(1);
    EXPECT_FALSE(voids.net());
}

TEST(LogIndex, MoreOperatorsThanThereAreNumbersForHaveNoName) {
    std::string text;
    for (int i = 0; i < 65'536; ++i)
        text += lineOf({.who = "Operator" + std::to_string(i)});
    const LogIndex index = indexOf(text);
    ASSERT_EQ(index.rows().size(), 65'536U);
    EXPECT_EQ(index.operators().size(), 65'535U);
    EXPECT_EQ(index.operators()[index.rows()[65'533].operatorId], "Operator65533");
    EXPECT_EQ(index.rows()[65'534].operatorId, 0);
    EXPECT_EQ(index.rows()[65'535].operatorId, 0);
}

TEST(LogFilter, EveryWishButTheirOwnHidesDamagedLines) {
    LogRow damaged{};
    damaged.kind = LineKind::Damaged;
    EXPECT_TRUE(LogFilter{}.wants(damaged));
    EXPECT_TRUE(LogFilter{.damagedOnly = true}.wants(damaged));
    for (const LogFilter& wish :
         {LogFilter{.from = 0}, LogFilter{.to = 99999999}, LogFilter{.kind = LineKind::Damaged},
          LogFilter{.operatorId = std::uint16_t{0}}, LogFilter{.result = LineResult::None},
          LogFilter{.mode = LineMode::None}}) {
        EXPECT_FALSE(wish.isEmpty());
        EXPECT_FALSE(wish.wants(damaged));
    }
    EXPECT_TRUE(LogFilter{}.isEmpty());
    EXPECT_FALSE(LogFilter{.damagedOnly = true}.isEmpty());
}

TEST(LogFilter, DaysAreInclusive) {
    const LogIndex index = indexOf(lineOf({.moment = "2026-11-20 23:59:59"}) +
                                   lineOf({.moment = "2026-11-21 00:00:00"}) +
                                   lineOf({.moment = "2026-11-22 00:00:00"}));
    EXPECT_EQ(totalsOf(index, {.from = 20261121}).lines, 2U);
    EXPECT_EQ(totalsOf(index, {.to = 20261121}).lines, 2U);
    EXPECT_EQ(totalsOf(index, {.from = 20261121, .to = 20261121}).lines, 1U);
}

TEST(LogFilter, EachWishNarrowsWhatIsAddedUp) {
    const LogIndex index =
        indexOf(lineOf({.amount = "1.00"}) + lineOf({.who = "Ben", .amount = "2.00"}) +
                lineOf({.type = "REFUND", .amount = "4.00"}) +
                lineOf({.amount = "8.00", .result = "DECLINED"}) +
                lineOf({.mode = "TEST", .amount = "16.00"}));
    EXPECT_EQ(totalsOf(index, {.kind = LineKind::Refund}).live.net(), -cents(400));
    EXPECT_EQ(totalsOf(index, {.operatorId = std::uint16_t{2}}).live.net(), cents(200));
    EXPECT_EQ(totalsOf(index, {.result = LineResult::Declined}).lines, 1U);
    EXPECT_EQ(totalsOf(index, {.mode = LineMode::Test}).test.net(), cents(1600));
    EXPECT_EQ(totalsOf(index, {.mode = LineMode::Test}).live.net(), 0);
}

TEST(LogFilter, DamagedLinesShowWithoutAWishAndOnTheirOwn) {
    const LogIndex index = indexOf(lineOf({}) + "broken\r\n");
    EXPECT_EQ(totalsOf(index).lines, 2U);
    EXPECT_EQ(totalsOf(index, {.from = 20000101}).lines, 1U);
    EXPECT_EQ(totalsOf(index, {.from = 20000101, .damagedOnly = true}).lines, 1U);
    EXPECT_EQ(totalsOf(index, {.damagedOnly = true}).damaged, 1U);
}

} // namespace
} // namespace tollvane::logviewer
