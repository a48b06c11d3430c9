// The checks of a refund and of a void.

#include "tests/scenarios/ValidationTest.h"

namespace tollvane::test {
namespace {

const char* const kCardRefusal = "The credit card number is invalid.\r\n\r\n"
                                 "At least the last four digits of the card number are required. "
                                 "Correct the card number to continue.";

class Refund : public ValidationTest {
protected:
    void SetUp() override {
        ValidationTest::SetUp();
        till.fillRefund();
    }
};

struct Digits {
    const char* what;
    const char* number;
};

void PrintTo(const Digits& row, std::ostream* out) {
    *out << row.what;
}

class RefundPasses : public Refund, public ::testing::WithParamInterface<Digits> {};

TEST_P(RefundPasses, WithACardNumberThatEndsInFourDigits) {
    till.enter("txtCardNumber", GetParam().number);

    expectPassed();

    EXPECT_EQ(till.operations().at(0), "Credit");
    EXPECT_EQ(sent("CardNumber"), GetParam().number) << "the whole text is sent";
}

INSTANTIATE_TEST_SUITE_P(Numbers, RefundPasses,
                         ::testing::Values(Digits{"FourDigits", "1234"},
                                           Digits{"NoughtsAndNines", "9009"},
                                           Digits{"FourteenDigits", "12345678901234"},
                                           Digits{"LettersInFrontOfFourDigits", "XYZ9876"}),
                         [](const auto& row) { return std::string(row.param.what); });

class RefundFails : public Refund, public ::testing::WithParamInterface<Digits> {};

TEST_P(RefundFails, WithoutFourDigitsAtTheEnd) {
    till.enter("txtCardNumber", GetParam().number);

    expectRefused(invalid(kCardRefusal), "txtCardNumber");
    EXPECT_EQ(till.held("CardNumber"), "");
}

INSTANTIATE_TEST_SUITE_P(Numbers, RefundFails,
                         ::testing::Values(Digits{"Empty", ""}, Digits{"ThreeDigits", "123"},
                                           Digits{"LetterAtTheEnd", "123A"},
                                           Digits{"LetterInTheLastFour", "1234567A90"},
                                           Digits{"BlankAtTheEnd", "1234 "},
                                           Digits{"WhatStandsBesideTheDigits", "12/:"},
                                           Digits{"DecimalPointInTheLastFour", "112.5"},
                                           Digits{"SignInTheLastFour", "1-123"}),
                         [](const auto& row) { return std::string(row.param.what); });

TEST_F(Refund, DoesNotAskTheCheckerOfCardNumbers) {
    till.enter("txtCardNumber", "4111111111111112");

    expectPassed();

    EXPECT_TRUE(till.desktop.checker.checked.empty());
}

TEST_F(Refund, OfNothingIsRefused) {
    till.enter("txtAmount", "$0.00");
    expectRefused(zeroAmount(), "txtAmount");
}

TEST_F(Refund, AmountIsSentWithoutItsSign) {
    till.enter("txtAmount", "($25.00)");
    expectPassed();
    EXPECT_EQ(till.lastOperation().property("Amount"), Variant(Money::fromUnits(25)));
}

TEST_F(Refund, NeedsTheTransactionNumber) {
    till.enter("txtTransactionNumber", "");
    expectRefused(noTransactionNumber(), "txtTransactionNumber");
}

TEST_F(Refund, TakesABlankForATransactionNumber) {
    till.enter("txtTransactionNumber", " ");
    expectPassed();
    EXPECT_EQ(till.lastOperation().argument, " ");
}

TEST_F(Refund, ChecksCardThenAmountThenTransactionNumber) {
    till.enter("txtCardNumber", "");
    till.enter("txtAmount", "$0.00");
    till.enter("txtTransactionNumber", "");

    expectRefused(invalid(kCardRefusal), "txtCardNumber");
    till.enter("txtCardNumber", "1111");
    expectRefused(zeroAmount(), "txtAmount");
    till.enter("txtAmount", "$1.00");
    expectRefused(noTransactionNumber(), "txtTransactionNumber");
    till.enter("txtTransactionNumber", "7001");
    expectPassed();
}

TEST_F(Refund, SendsNothingThatBelongsToACharge) {
    till.choose(0);
    till.fillCharge();
    till.fillRefund();

    expectPassed();

    for (const char* property : {"FirstName", "LastName", "ExpirationDate", "Track1",
                                 "StreetAddress", "City", "State", "ZipCode"}) {
        EXPECT_EQ(sent(property), "") << property;
    }
    EXPECT_EQ(till.lastOperation().property("Tax"), Variant(Money()));
    EXPECT_EQ(sentField("x_card_code"), "");
}

TEST_F(Refund, SendsTheOrderData) {
    till.enter("txtInvoiceNumber", "INV-7");
    till.enter("txtPONumber", "PO-7");
    till.enter("txtDescription", "Chair returned");
    till.enter("txtEMail", "mary@example.org");

    expectPassed();

    EXPECT_EQ(sent("InvoiceNumber"), "INV-7");
    EXPECT_EQ(sentField("x_po_num"), "PO-7");
    EXPECT_EQ(sent("Description"), "Chair returned");
    EXPECT_EQ(sent("CustomerEmail"), "mary@example.org");
}

TEST_F(Refund, CallsTheComponentInOrder) {
    till.enter("txtInvoiceNumber", "INV-7");
    till.enter("txtPONumber", "PO-7");

    till.submit();

    EXPECT_EQ(till.chargeCalls(),
              (std::vector<std::string>{
                  "charge.ClearFields()", "charge.CardNumber = secret(4)", "charge.Amount = 25",
                  "charge.InvoiceNumber = \"INV-7\"", "charge.TransactionField(\"x_po_num\")",
                  "field x_po_num.cTransactionFields_Value = \"PO-7\"", "charge.Description = \"\"",
                  "charge.CustomerEmail = \"\"", "charge.Credit(\"7001\")"}));
}

class Void : public ValidationTest {
protected:
    void SetUp() override {
        ValidationTest::SetUp();
        till.fillVoid();
    }
};

TEST_F(Void, NeedsNoCardAndSendsNone) {
    till.enter("txtCardNumber", "4111111111111111");
    till.enterExpiry(1, 2026);

    expectPassed();

    EXPECT_EQ(till.operations().at(0), "Void");
    EXPECT_EQ(sent("CardNumber"), "");
}

TEST_F(Void, OfNothingIsRefused) {
    till.enter("txtAmount", "0");
    expectRefused(zeroAmount(), "txtAmount");
}

TEST_F(Void, NeedsTheTransactionNumber) {
    till.enter("txtTransactionNumber", "");
    expectRefused(noTransactionNumber(), "txtTransactionNumber");
}

TEST_F(Void, ChecksAmountThenTransactionNumber) {
    till.enter("txtAmount", "$0.00");
    till.enter("txtTransactionNumber", "");

    expectRefused(zeroAmount(), "txtAmount");
    till.enter("txtAmount", "$1.00");
    expectRefused(noTransactionNumber(), "txtTransactionNumber");
}

TEST_F(Void, CallsTheComponentInOrder) {
    till.enter("txtInvoiceNumber", "");
    till.enter("txtPONumber", "");

    till.submit();

    EXPECT_EQ(till.chargeCalls(),
              (std::vector<std::string>{
                  "charge.ClearFields()", "charge.Amount = 25", "charge.InvoiceNumber = \"\"",
                  "charge.TransactionField(\"x_po_num\")",
                  "field x_po_num.cTransactionFields_Value = \"\"", "charge.Description = \"\"",
                  "charge.CustomerEmail = \"\"", "charge.Void(\"7001\")"}));
}

TEST_F(Void, ZeroIsShownInTheCurrencyFormOfTheLocale) {
    till.desktop.locale.use(localeid::germany);
    till.enter("txtAmount", "0,00");
    expectRefused(invalid("The amount is 0,00 \x80.\r\n\r\nEnter a valid amount to continue."),
                  "txtAmount");
}

} // namespace
} // namespace tollvane::test
