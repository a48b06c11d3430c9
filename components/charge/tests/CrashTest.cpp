// Whatever fails, and wherever the power goes off: a card is charged at most once, and the log
// tells the outcome exactly once after the next start.
#include "components/charge/core/Failure.h"
#include "components/charge/core/Reasons.h"
#include "components/charge/tests/Shop.h"

#include <gtest/gtest.h>

namespace tollvane::charge {
namespace {

using Fault = MemoryFiles::Fault;

constexpr const char* amount = "30.00";

std::size_t linesWith(Shop& shop, const std::string& text) {
    std::size_t count = 0;
    for (const std::string& line : shop.logLines())
        count +=
            line.find(text) != std::string::npos && line.find("(interrupted)") == std::string::npos
                ? 1
                : 0;
    return count;
}

std::size_t approvedCharges(Shop& shop) {
    std::size_t count = 0;
    const Ledger ledger = shop.ledger();
    for (const LedgerEntry& each : ledger.entries())
        count += each.operation == Operation::Charge && each.approved() ? 1 : 0;
    return count;
}

// How many changes of files one charge makes when nothing fails.
int changesOfOneCharge() {
    Shop shop;
    shop.files.failAt(1'000'000, Fault::Refuse);
    shop.charge(amount);
    return shop.files.changes;
}

// The power goes off during the charge; what it still answers nobody sees.
void chargeInTheDark(Shop& shop) {
    try {
        shop.charge(amount);
    } catch (const PowerCut&) {
    }
}

void cutPowerAt(int change, Fault fault) {
    SCOPED_TRACE("change " + std::to_string(change) + ", fault " +
                 std::to_string(static_cast<int>(fault)));
    Shop shop;
    shop.files.failAt(change, fault);
    chargeInTheDark(shop);
    shop.restart();
    const std::size_t charges = approvedCharges(shop);
    EXPECT_LE(charges, 1u);
    EXPECT_EQ(charges, linesWith(shop, "APPROVED"));
    shop.restart();
    EXPECT_EQ(charges, linesWith(shop, "APPROVED")) << "told once, however often it starts";
    // The operator tries again: approved where nothing was charged, a duplicate where it was.
    EXPECT_EQ(charges == 0, shop.charge(amount));
    EXPECT_EQ(1u, approvedCharges(shop));
    EXPECT_EQ(1u, linesWith(shop, "APPROVED"));
}

TEST(PowerCut, AtEveryChangeOfAFileTheChargeIsMadeAndToldAtMostOnce) {
    const int changes = changesOfOneCharge();
    ASSERT_GE(changes, 6);
    for (int change = 1; change <= changes; ++change) {
        for (Fault fault : {Fault::CutBefore, Fault::CutMidway, Fault::CutAfter})
            cutPowerAt(change, fault);
    }
}

TEST(PowerCut, DuringTheSettlingAfterAPowerCutDoesNoHarmEither) {
    for (Fault fault : {Fault::CutBefore, Fault::CutMidway, Fault::CutAfter}) {
        for (int second = 1; second <= 4; ++second) {
            Shop shop;
            shop.files.failAt(1, Fault::CutAfter, false, "data/ledger-test.dat");
            chargeInTheDark(shop);
            shop.files.failAt(second, fault);
            shop.service = shop.start();
            shop.service->settleOpenOperations(); // the harness's power cut ends here, too
            shop.restart();
            EXPECT_EQ(1u, approvedCharges(shop));
            EXPECT_EQ(1u, linesWith(shop, "APPROVED")) << second;
        }
    }
}

TEST(PowerCut, InARefundLeavesTheTransactionThatItRefersToInTheLog) {
    Shop shop;
    const std::string charge = shop.charged(amount);
    shop.clock.nextDay();
    shop.files.failAt(1, Fault::CutAfter, false, "data/ledger-test.dat");
    try {
        shop.refund(charge, amount);
    } catch (const PowerCut&) {
    }
    shop.restart();
    ASSERT_EQ(1u, linesWith(shop, "REFUND"));
    EXPECT_NE(std::string::npos, shop.logLines().back().find(charge)) << shop.logLines().back();
}

// A write that fails without a crash: either an error before anything was sent, or the true answer.
void failWriteAt(int change, Fault fault, bool repeated) {
    SCOPED_TRACE("change " + std::to_string(change) + (repeated ? " and all later" : ""));
    Shop shop;
    shop.files.failAt(change, fault, repeated);
    bool approved = false;
    bool unknown = false;
    try {
        approved = shop.charge(amount);
        EXPECT_TRUE(approved || shop.reason() == static_cast<int>(Reason::NeverReceived));
    } catch (const com::ComponentError& error) {
        unknown = error.number() == failurenumber::outcomeUnknown;
        EXPECT_TRUE(unknown || error.number() == failurenumber::cannotRecord);
        EXPECT_NE(std::string::npos,
                  error.description().find(unknown ? "not known" : "was not sent"));
        EXPECT_NE(std::string::npos, error.description().find("not enough space"));
        EXPECT_EQ(unknown ? 1 : 0, shop.submissions);
    }
    shop.restart();
    if (unknown)
        approved = approvedCharges(shop) == 1;
    EXPECT_EQ(approved ? 1u : 0u, approvedCharges(shop)) << "the answer is the truth";
    EXPECT_EQ(approved ? 1u : 0u, linesWith(shop, "APPROVED"));
}

TEST(FailedWrite, AtEveryPlaceIsAnErrorBeforeSendingOrLeavesTheAnswerTrue) {
    const int changes = changesOfOneCharge();
    for (int change = 1; change <= changes; ++change) {
        for (Fault fault : {Fault::Refuse, Fault::Short}) {
            failWriteAt(change, fault, false);
            failWriteAt(change, fault, true);
        }
    }
}

TEST(FailedWrite, AJournalThatCannotBeWrittenKeepsTheTransactionFromTheProcessor) {
    Shop shop;
    shop.files.failAt(1, Fault::Refuse, true, "data/journal.dat");
    EXPECT_THROW(shop.charge(amount), com::ComponentError);
    EXPECT_EQ(0, shop.submissions);
}

TEST(FailedWrite, ALogThatCannotBeWrittenKeepsTheTransactionFromTheProcessor) {
    Shop shop;
    shop.files.failAt(1, Fault::Refuse, true, "logs/ZENDACARD.LOG");
    EXPECT_THROW(shop.charge(amount), com::ComponentError);
    EXPECT_EQ(0, shop.submissions);
}

TEST(FailedWrite, ALogThatFailsAfterTheAnswerLeavesTheApprovalAndIsWrittenByTheNextOperation) {
    Shop shop;
    shop.files.failAt(3, Fault::Refuse, true, "logs/ZENDACARD.LOG");
    EXPECT_TRUE(shop.charge(amount));
    EXPECT_EQ(0u, linesWith(shop, "APPROVED"));
    shop.files.heal();
    EXPECT_TRUE(shop.charge("31.00"));
    EXPECT_EQ(2u, linesWith(shop, "APPROVED"));
}

TEST(FailedWrite, ALedgerThatCannotBeWrittenChargesNothing) {
    Shop shop;
    shop.files.failAt(1, Fault::Refuse, true, "data/ledger-test.dat");
    EXPECT_FALSE(shop.charge(amount));
    EXPECT_EQ(static_cast<int>(Reason::NeverReceived), shop.reason());
    shop.files.heal();
    EXPECT_TRUE(shop.charge(amount));
}

TEST(FailedWrite, ASignInThatCannotBeLoggedStopsNobody) {
    Shop shop;
    shop.files.failAt(1, Fault::Refuse, true);
    shop.service->signIn("Mary Smith");
    shop.files.heal();
    ASSERT_TRUE(shop.charge(amount));
    EXPECT_EQ(1u, linesWith(shop, "Mary Smith")) << "the name is kept for later lines";
}

TEST(DamagedFile, ALedgerDamagedInsideStopsOperationsBeforeAnythingIsCharged) {
    Shop shop;
    ASSERT_TRUE(shop.charge(amount));
    ASSERT_TRUE(shop.charge("31.00"));
    shop.files.contents["data/ledger-test.dat"][12] ^= 1;
    const auto before = shop.files.contents["data/ledger-test.dat"];
    try {
        shop.charge("32.00");
        FAIL() << "no error";
    } catch (const com::ComponentError& error) {
        EXPECT_EQ(failurenumber::damagedFile, error.number());
    }
    EXPECT_EQ(before, shop.files.contents["data/ledger-test.dat"]);
}

TEST(DamagedFile, AnUnreadableJournalStopsOperationsBeforeAnythingIsSent) {
    Shop shop;
    shop.files.makeUnreadable("data/journal.dat");
    EXPECT_THROW(shop.charge(amount), com::ComponentError);
    EXPECT_EQ(0, shop.submissions);
}

TEST(Ledger, TheSameKeyIsTheSameOperation) {
    Shop shop;
    SimulatedProcessor processor(shop.files, "data");
    ProcessorRequest request;
    request.key = "SAME";
    request.time = shop.clock.moment;
    request.amount = Money::fromUnits(5);
    request.cardNumber = SecretText(Shop::card);
    request.expiry = Expiry{3, 2027};
    const ProcessorAnswer first = processor.submit(request);
    EXPECT_TRUE(first.approved());
    EXPECT_EQ(first, processor.submit(request));
    EXPECT_EQ(first, processor.find("SAME", true));
    EXPECT_EQ(std::nullopt, processor.find("SAME", false));
    EXPECT_EQ(std::nullopt, processor.find("OTHER", true));
    EXPECT_EQ(1u, shop.ledger().count());
}

TEST(Ledger, OutlivesTheComponent) {
    Shop shop;
    const std::string id = shop.charged(amount);
    shop.restart();
    EXPECT_TRUE(shop.refund(id, "10.00"));
    shop.restart();
    EXPECT_FALSE(shop.refund(id, "20.01"));
    EXPECT_NE(id, shop.charged("1.00")) << "ids are never given twice";
}

TEST(Journal, HoldsNothingOpenOnceTheLogHasItsLine) {
    Shop shop;
    shop.charge(amount);
    shop.charge("7002.20");
    EXPECT_TRUE(Journal(shop.files, OperationBook::journalPath("data")).load().empty());
}

TEST(Journal, IsEmptiedOnlyWhenItHasGrownLongAndNothingIsOpen) {
    Shop shop;
    for (int i = 1; i <= 120; ++i)
        ASSERT_TRUE(shop.charge(std::to_string(i) + ".00"));
    EXPECT_LT(shop.files.contents["data/journal.dat"].size(), 17'500u);
    EXPECT_GT(shop.files.contents["data/journal.dat"].size(), 0u);
    EXPECT_EQ(120u, shop.ledger().count());
    EXPECT_EQ(120u, linesWith(shop, "APPROVED"));
}

TEST(OtherProcesses, AreKeptOutForEveryOperation) {
    Shop shop;
    shop.charge(amount);
    EXPECT_EQ(1, shop.files.locks);
    shop.service->signIn("x");
    EXPECT_EQ(2, shop.files.locks);
}

TEST(OtherProcesses, SeeEachOthersTransactions) {
    Shop shop;
    auto second = shop.start();
    const std::string id = shop.charged(amount);
    second->fields().set(Field::Amount, "1.00");
    EXPECT_TRUE(second->run(Operation::Void, id));
    EXPECT_FALSE(shop.voidIt(id));
    EXPECT_EQ(static_cast<int>(Reason::AlreadyVoid), shop.reason());
}

} // namespace
} // namespace tollvane::charge
