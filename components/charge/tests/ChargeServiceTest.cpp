#include "components/charge/core/Failure.h"
#include "components/charge/core/Reasons.h"
#include "components/charge/tests/Shop.h"

#include <gtest/gtest.h>

namespace tollvane::charge {
namespace {

int code(Reason reason) {
    return static_cast<int>(reason);
}

TEST(Charge, AnOrdinaryChargeIsApprovedWithCodeAndId) {
    Shop shop;
    EXPECT_TRUE(shop.charge("12.50"));
    const ProcessorAnswer& answer = shop.service->answer();
    EXPECT_EQ(1, answer.responseCode);
    EXPECT_EQ(1, answer.reasonCode);
    EXPECT_EQ(0, answer.subCode);
    EXPECT_EQ(6u, answer.approvalCode.size());
    EXPECT_EQ("9000000001", answer.transactionId);
    EXPECT_EQ("The transaction has been approved.", answer.reasonText);
}

TEST(Charge, TestAndLiveTransactionsAreKeptApart) {
    Shop shop;
    const std::string testId = shop.charged("12.50");
    shop.settings.settings.testMode = false;
    EXPECT_EQ("1000000001", shop.charged("12.50"));
    EXPECT_EQ(1u, shop.ledger(true).count());
    EXPECT_EQ(1u, shop.ledger(false).count());
    EXPECT_FALSE(shop.voidIt(testId));
    EXPECT_EQ(code(Reason::UnknownTransaction), shop.reason());
}

TEST(Charge, WhatTheProcessorCannotAcceptIsAnErrorAnswer) {
    struct Case {
        Field field;
        const char* value;
        Reason reason;
    };
    for (const Case& each : {Case{Field::Amount, "0.00", Reason::InvalidAmount},
                             Case{Field::Amount, "-5.00", Reason::InvalidAmount},
                             Case{Field::Amount, "5.005", Reason::InvalidAmount},
                             Case{Field::CardNumber, "", Reason::InvalidCardNumber},
                             Case{Field::CardNumber, "4111111111111112", Reason::InvalidCardNumber},
                             Case{Field::ExpirationDate, "", Reason::InvalidExpiry},
                             Case{Field::ExpirationDate, "soon", Reason::InvalidExpiry},
                             Case{Field::ExpirationDate, "10-2026", Reason::CardExpired},
                             Case{Field::CardCode, "12", Reason::InvalidCardCode},
                             Case{Field::CardCode, "12a", Reason::InvalidCardCode},
                             Case{Field::City, "A city with a name of more than forty letters",
                                  Reason::FieldTooLong}}) {
        Shop shop;
        shop.fill("12.50");
        shop.service->fields().set(each.field, each.value);
        EXPECT_FALSE(shop.service->run(Operation::Charge, {}));
        EXPECT_EQ(3, shop.response()) << each.value;
        EXPECT_EQ(code(each.reason), shop.reason()) << each.value;
        EXPECT_FALSE(shop.service->answer().reasonText.empty());
        EXPECT_EQ("", shop.service->answer().approvalCode);
    }
}

TEST(Charge, ACardOfTheCurrentMonthIsGood) {
    Shop shop;
    shop.fill("12.50");
    shop.service->fields().set(Field::ExpirationDate, "11-2026");
    EXPECT_TRUE(shop.service->run(Operation::Charge, {}));
}

TEST(Charge, AFieldThatIsTooLongIsNamedAndNothingIsSent) {
    Shop shop;
    shop.fill("12.50");
    shop.service->fields().set(Field::City, std::string(41, 'x'));
    shop.service->run(Operation::Charge, {});
    EXPECT_EQ("The city is too long.", shop.service->answer().reasonText);
    EXPECT_EQ(0, shop.submissions);
}

TEST(Charge, AnAmountThatIsNoneRaisesBeforeAnythingIsSent) {
    Shop shop;
    shop.fill("nonsense");
    EXPECT_THROW(shop.service->run(Operation::Charge, {}), com::ComponentError);
    EXPECT_EQ(0, shop.submissions);
}

TEST(Charge, ASwipeGivesCardNumberAndExpiry) {
    Shop shop;
    shop.service->fields().set(Field::TrackOne, Shop::track);
    shop.service->fields().set(Field::Amount, "12.50");
    EXPECT_TRUE(shop.service->run(Operation::Charge, {}));
    EXPECT_EQ(Shop::card, shop.service->fields().get(Field::CardNumber));
    EXPECT_EQ("12-2027", shop.service->fields().get(Field::ExpirationDate));
}

TEST(Charge, AnExpiryThatWasGivenIsNotReplacedByTheSwipe) {
    Shop shop;
    shop.service->fields().set(Field::TrackOne, Shop::track);
    shop.service->fields().set(Field::Amount, "12.50");
    shop.service->fields().set(Field::ExpirationDate, "3-2028");
    EXPECT_TRUE(shop.service->run(Operation::Charge, {}));
    EXPECT_EQ("3-2028", shop.service->fields().get(Field::ExpirationDate));
}

TEST(Charge, AnUnreadableSwipeIsAnErrorAnswerAndIsNotSent) {
    Shop shop;
    shop.fill("12.50");
    shop.service->fields().set(Field::TrackOne, "%E?");
    EXPECT_FALSE(shop.service->run(Operation::Charge, {}));
    EXPECT_EQ(code(Reason::UnreadableSwipe), shop.reason());
    EXPECT_EQ(0, shop.submissions);
}

TEST(Charge, CardCodeAndTrackAreGoneAfterTheOperation) {
    Shop shop;
    shop.fill("12.50");
    shop.service->fields().set(Field::CardCode, "123");
    shop.service->fields().set(Field::TrackOne, Shop::track);
    shop.service->run(Operation::Charge, {});
    EXPECT_EQ("", shop.service->fields().get(Field::CardCode));
    EXPECT_EQ("", shop.service->fields().get(Field::TrackOne));
}

TEST(Charge, ClearFieldsForgetsFieldsAndAnswer) {
    Shop shop;
    shop.charge("12.50");
    shop.service->clearFields();
    EXPECT_EQ("", shop.service->fields().get(Field::CardNumber));
    EXPECT_EQ(0, shop.response());
    EXPECT_EQ("", shop.service->answer().transactionId);
}

TEST(VoiceCapture, TheGivenCodeIsTheApprovalCode) {
    Shop shop;
    shop.fill("12.50");
    EXPECT_TRUE(shop.service->run(Operation::VoiceCapture, "A1B2C3"));
    EXPECT_EQ("A1B2C3", shop.service->answer().approvalCode);
    EXPECT_EQ("A1B2C3", shop.service->fields().get(Field::AuthorizationCode));
}

TEST(VoiceCapture, ACodeThatIsNotSixLettersOrDigitsIsAnErrorAnswer) {
    for (const char* voiceCode : {"", "12345", "12 456"}) {
        Shop shop;
        shop.fill("12.50");
        EXPECT_FALSE(shop.service->run(Operation::VoiceCapture, voiceCode));
        EXPECT_EQ(code(Reason::InvalidVoiceCode), shop.reason()) << voiceCode;
    }
}

TEST(VoiceCapture, ACodeThatIsTooLongIsAnErrorAnswer) {
    Shop shop;
    shop.fill("12.50");
    EXPECT_FALSE(shop.service->run(Operation::VoiceCapture, "1234567"));
    EXPECT_EQ(code(Reason::FieldTooLong), shop.reason());
}

TEST(VoiceCapture, ACodeThatTheBankDoesNotKnowIsDeclined) {
    Shop shop;
    shop.fill("12.50");
    EXPECT_FALSE(shop.service->run(Operation::VoiceCapture, "000000"));
    EXPECT_EQ(2, shop.response());
    EXPECT_EQ(code(Reason::VoiceCodeUnknown), shop.reason());
}

TEST(Refund, PartsAreRefundedUpToTheChargedAmount) {
    Shop shop;
    const std::string id = shop.charged("30.00");
    EXPECT_TRUE(shop.refund(id, "10.00"));
    EXPECT_TRUE(shop.refund(id, "15.00"));
    EXPECT_FALSE(shop.refund(id, "5.01"));
    EXPECT_EQ(code(Reason::RefundTooLarge), shop.reason());
    EXPECT_EQ("The refund is too large: 5.00 is left to refund.",
              shop.service->answer().reasonText);
    EXPECT_TRUE(shop.refund(id, "5.00"));
    EXPECT_FALSE(shop.refund(id, "0.01"));
}

TEST(Refund, OnlyTheLastFourDigitsOfTheCardAreNeededAndMustBeRight) {
    Shop shop;
    const std::string id = shop.charged("30.00");
    EXPECT_FALSE(shop.refund(id, "10.00", "1112"));
    EXPECT_EQ(code(Reason::RefundCardDiffers), shop.reason());
    EXPECT_TRUE(shop.refund(id, "10.00", "1111"));
    EXPECT_TRUE(shop.refund(id, "11.00", Shop::card));
}

TEST(Refund, OnlyApprovedChargesCanBeRefunded) {
    Shop shop;
    EXPECT_FALSE(shop.refund("9000000099", "1.00"));
    EXPECT_EQ(code(Reason::UnknownTransaction), shop.reason());
    EXPECT_FALSE(shop.refund("", "1.00"));
    EXPECT_EQ(code(Reason::UnknownTransaction), shop.reason());
    const std::string declined = shop.charged("7002.20");
    EXPECT_FALSE(shop.refund(declined, "1.00"));
    EXPECT_EQ(code(Reason::NothingToRefund), shop.reason());
    const std::string voided = shop.charged("30.00");
    ASSERT_TRUE(shop.voidIt(voided));
    EXPECT_FALSE(shop.refund(voided, "1.00"));
    EXPECT_EQ(code(Reason::NothingToRefund), shop.reason());
}

TEST(Refund, AVoidedRefundCanBeMadeAgain) {
    Shop shop;
    const std::string id = shop.charged("30.00");
    ASSERT_TRUE(shop.refund(id, "30.00"));
    ASSERT_TRUE(shop.voidIt(shop.lastId()));
    EXPECT_TRUE(shop.refund(id, "30.00"));
}

TEST(Refund, StaysPossibleAfterSettlement) {
    Shop shop;
    const std::string id = shop.charged("30.00");
    shop.clock.nextDay();
    EXPECT_TRUE(shop.refund(id, "30.00"));
}

TEST(Void, AChargeOfTheDayIsVoidedOnce) {
    Shop shop;
    const std::string id = shop.charged("30.00");
    EXPECT_TRUE(shop.voidIt(id));
    EXPECT_FALSE(shop.voidIt(id));
    EXPECT_EQ(code(Reason::AlreadyVoid), shop.reason());
}

TEST(Void, WhatIsNotThereIsAnErrorAnswer) {
    Shop shop;
    EXPECT_FALSE(shop.voidIt("9000000001"));
    EXPECT_EQ(code(Reason::UnknownTransaction), shop.reason());
}

TEST(Void, ASettledTransactionIsNotVoided) {
    Shop shop;
    const std::string yesterday = shop.charged("30.00");
    shop.clock.nextDay();
    EXPECT_FALSE(shop.voidIt(yesterday));
    EXPECT_EQ(code(Reason::AlreadySettled), shop.reason());
    const std::string atOnce = shop.charged("7001.01");
    EXPECT_FALSE(shop.voidIt(atOnce));
    EXPECT_EQ(code(Reason::AlreadySettled), shop.reason());
}

TEST(Void, AVoidAndADeclineCannotBeVoided) {
    Shop shop;
    const std::string declined = shop.charged("7002.20");
    EXPECT_FALSE(shop.voidIt(declined));
    EXPECT_EQ(code(Reason::CannotBeVoided), shop.reason());
    ASSERT_TRUE(shop.voidIt(shop.charged("30.00")));
    EXPECT_FALSE(shop.voidIt(shop.lastId()));
    EXPECT_EQ(code(Reason::CannotBeVoided), shop.reason());
}

TEST(Void, AChargeWithRefundsIsNotVoidedBeforeThem) {
    Shop shop;
    const std::string id = shop.charged("30.00");
    ASSERT_TRUE(shop.refund(id, "1.00"));
    const std::string refund = shop.service->answer().transactionId;
    EXPECT_FALSE(shop.voidIt(id));
    EXPECT_EQ(code(Reason::HasRefunds), shop.reason());
    EXPECT_TRUE(shop.voidIt(refund));
    EXPECT_TRUE(shop.voidIt(id));
}

TEST(Void, AHeldTransactionCanBeVoided) {
    Shop shop;
    EXPECT_TRUE(shop.voidIt(shop.charged("7004.80")));
}

TEST(Duplicates, TheSameChargeWithinTheWindowIsRefusedWithTheFirstOnesId) {
    Shop shop;
    const std::string first = shop.charged("30.00");
    shop.clock.forwardSeconds(119);
    EXPECT_FALSE(shop.charge("30.00"));
    EXPECT_EQ(3, shop.response());
    EXPECT_EQ(code(Reason::Duplicate), shop.reason());
    EXPECT_NE(std::string::npos, shop.service->answer().reasonText.find(first));
    shop.clock.forwardSeconds(1);
    EXPECT_TRUE(shop.charge("30.00"));
}

TEST(Duplicates, AreSeenAlsoWhenTheClockWasPutBackALittle) {
    Shop shop;
    ASSERT_TRUE(shop.charge("12.50"));
    shop.clock.forwardSeconds(-60);
    EXPECT_FALSE(shop.charge("12.50"));
    EXPECT_EQ(code(Reason::Duplicate), shop.reason());
    shop.clock.forwardSeconds(-60);
    EXPECT_TRUE(shop.charge("12.50"));
}

TEST(Duplicates, AnotherCardAmountInvoiceOrExpiryIsAnotherCharge) {
    Shop shop;
    ASSERT_TRUE(shop.charge("30.00"));
    EXPECT_TRUE(shop.charge("30.01"));
    EXPECT_TRUE(shop.charge("30.00", Shop::otherCard));
    shop.fill("30.00");
    shop.service->fields().set(Field::InvoiceNumber, "4711");
    EXPECT_TRUE(shop.service->run(Operation::Charge, {}));
    shop.fill("30.00");
    shop.service->fields().set(Field::ExpirationDate, "4-2027");
    EXPECT_TRUE(shop.service->run(Operation::Charge, {}));
}

TEST(Duplicates, ADeclinedOrVoidedChargeMayBeTriedAgain) {
    Shop shop;
    shop.charge("7002.20");
    shop.charge("7002.20");
    EXPECT_EQ(code(Reason::Declined), shop.reason());
    ASSERT_TRUE(shop.voidIt(shop.charged("30.00")));
    EXPECT_TRUE(shop.charge("30.00"));
}

TEST(Duplicates, AWindowOfZeroAcceptsEveryRepetition) {
    Shop shop;
    shop.settings.settings.duplicateWindowSeconds = 0;
    EXPECT_TRUE(shop.charge("30.00"));
    EXPECT_TRUE(shop.charge("30.00"));
}

TEST(Duplicates, ARefundRepeatedAtOnceIsRefused) {
    Shop shop;
    const std::string id = shop.charged("30.00");
    ASSERT_TRUE(shop.refund(id, "5.00"));
    EXPECT_FALSE(shop.refund(id, "5.00"));
    EXPECT_EQ(code(Reason::Duplicate), shop.reason());
}

TEST(Triggers, EveryAmountOfTheTableAnswersAsTheTableSays) {
    struct Row {
        const char* amount;
        int response;
        Reason reason;
    };
    for (const Row& row :
         {Row{"7001.01", 1, Reason::Approved}, Row{"7002.20", 2, Reason::Declined},
          Row{"7002.21", 2, Reason::InsufficientFunds}, Row{"7002.22", 2, Reason::KeepCard},
          Row{"7002.23", 2, Reason::CardCodeMismatch}, Row{"7002.27", 2, Reason::AddressMismatch},
          Row{"7003.60", 3, Reason::ProcessorError}, Row{"7003.61", 3, Reason::ProcessorBusy},
          Row{"7004.80", 4, Reason::HeldForReview}, Row{"7005.01", 1, Reason::Approved},
          Row{"7005.02", 3, Reason::NeverReceived}}) {
        Shop shop;
        EXPECT_EQ(row.response == 1, shop.charge(row.amount)) << row.amount;
        EXPECT_EQ(row.response, shop.response()) << row.amount;
        EXPECT_EQ(code(row.reason), shop.reason()) << row.amount;
        EXPECT_FALSE(shop.service->answer().reasonText.empty()) << row.amount;
    }
}

TEST(Triggers, AWrongCardCodeIsDeclined) {
    for (const char* cardCode : {"999", "9999"}) {
        Shop shop;
        shop.fill("12.50");
        shop.service->fields().set(Field::CardCode, cardCode);
        EXPECT_FALSE(shop.service->run(Operation::Charge, {}));
        EXPECT_EQ(2, shop.response());
        EXPECT_EQ(code(Reason::CardCodeMismatch), shop.reason());
    }
}

TEST(Triggers, AZipCodeOfZerosIsAnAddressMismatch) {
    Shop shop;
    shop.fill("12.50");
    shop.service->fields().set(Field::Zip, "00000");
    EXPECT_FALSE(shop.service->run(Operation::Charge, {}));
    EXPECT_EQ(2, shop.response());
    EXPECT_EQ(code(Reason::AddressMismatch), shop.reason());
}

TEST(Triggers, NeighbouringAmountsTriggerNothing) {
    Shop shop;
    for (const char* amount : {"7001.00", "7002.19", "7002.24", "7003.62", "7004.79", "7005.04"})
        EXPECT_TRUE(shop.charge(amount)) << amount;
}

TEST(Triggers, DeclinesAreForChargesOnly) {
    Shop shop;
    const std::string id = shop.charged("9000.00");
    EXPECT_TRUE(shop.refund(id, "7002.20"));
}

TEST(LostAnswer, IsAskedForAgainAndFound) {
    Shop shop;
    EXPECT_TRUE(shop.charge("7005.01"));
    EXPECT_EQ(1, shop.submissions);
    EXPECT_EQ(1u, shop.ledger().count());
}

TEST(LostAnswer, WithADeadLineTheOutcomeIsUnknownAndSaidSo) {
    Shop shop;
    try {
        shop.charge("7005.03");
        FAIL() << "no error";
    } catch (const com::ComponentError& error) {
        EXPECT_EQ(failurenumber::outcomeUnknown, error.number());
        EXPECT_NE(std::string::npos, error.description().find("not known"));
    }
    EXPECT_NE(std::string::npos, shop.log().find("UNKNOWN"));
    EXPECT_EQ(std::string::npos, shop.log().find("APPROVED"));
}

TEST(LostAnswer, IsSettledBeforeTheNextOperationWhichIsThenADuplicate) {
    Shop shop;
    EXPECT_THROW(shop.charge("7005.03"), com::ComponentError);
    EXPECT_FALSE(shop.charge("7005.03"));
    EXPECT_EQ(code(Reason::Duplicate), shop.reason());
    EXPECT_EQ(3u, shop.logLines().size());
    EXPECT_NE(std::string::npos, shop.logLines()[1].find("APPROVED"));
    EXPECT_NE(std::string::npos, shop.logLines()[1].find("Found out after an interruption"));
}

TEST(LostAnswer, IsSettledAtTheNextStart) {
    Shop shop;
    EXPECT_THROW(shop.charge("7005.03"), com::ComponentError);
    shop.restart();
    ASSERT_EQ(2u, shop.logLines().size());
    EXPECT_NE(std::string::npos, shop.logLines()[1].find("APPROVED"));
    shop.restart();
    EXPECT_EQ(2u, shop.logLines().size()) << "told once";
}

} // namespace
} // namespace tollvane::charge
