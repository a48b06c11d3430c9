// What an emptied entry looks like, and when the form empties itself.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

class NewEntry : public OpenTillTest {
protected:
    void expectEmptyEntry() {
        for (const char* name :
             {"txtCardName", "txtCardNumber", "txtCardCode", "txtAuthNum", "txtTransactionNumber",
              "txtBillToStreet", "txtBillToCity", "txtBillToZip", "txtStAddr", "txtZipCode",
              "txtEMail", "txtDescription", "txtMagStripe"}) {
            EXPECT_EQ(till.text(name), "") << name;
        }
        EXPECT_EQ(till.text("txtAmount"), "$0.00");
        EXPECT_EQ(till.text("txtTaxAmount"), "$0.00");
        EXPECT_EQ(till.list("cboBillToState").listIndex(), -1);
        EXPECT_FALSE(till.check("chkVoiceAuth").checked());
        EXPECT_FALSE(till.program().TransactionApproved());
        EXPECT_TRUE(till.button("cmdSubmit").enabled());
        EXPECT_EQ(till.button("cmdCancel").caption(), "Cancel");
    }
};

TEST_F(NewEntry, IsEmptyWhenTheFormOpens) {
    expectEmptyEntry();
    EXPECT_EQ(till.text("txtInvoiceNumber"), "261121953000");
    EXPECT_EQ(till.text("txtPONumber"), "261121953000");
}

struct KindChange {
    const char* what;
    int from;
    int to;
};

void PrintTo(const KindChange& change, std::ostream* out) {
    *out << change.what;
}

class AfterAnApproval : public NewEntry, public ::testing::WithParamInterface<KindChange> {};

TEST_P(AfterAnApproval, ChoosingAnyKindOfTransactionClearsTheEntry) {
    switch (GetParam().from) {
    case 0: till.fillCharge(); break;
    case 1: till.fillRefund(); break;
    default: till.fillVoid(); break;
    }
    till.submit();
    ASSERT_TRUE(till.program().TransactionApproved());
    till.boxes();

    till.choose(GetParam().to);

    expectEmptyEntry();
    EXPECT_EQ(till.program().TransType(), GetParam().to);
}

INSTANTIATE_TEST_SUITE_P(
    From, AfterAnApproval,
    ::testing::Values(KindChange{"ChargeToRefund", 0, 1}, KindChange{"ChargeToVoid", 0, 2},
                      KindChange{"RefundToCharge", 1, 0}, KindChange{"RefundToVoid", 1, 2},
                      KindChange{"VoidToCharge", 2, 0}, KindChange{"VoidToRefund", 2, 1}),
    [](const auto& row) { return std::string(row.param.what); });

TEST_F(NewEntry, ChoosingAKindBeforeAnApprovalKeepsTheEntry) {
    till.fillCharge();

    till.choose(1);

    EXPECT_EQ(till.text("txtCardName"), "Mary Ann Smith");
    EXPECT_EQ(till.text("txtAmount"), "$25.00");
    EXPECT_EQ(till.text("txtDescription"), "Two chairs");
}

TEST_F(NewEntry, ClearingUnticksTheTelephoneBoxAndClosesTheApprovalCode) {
    till.press("chkVoiceAuth");

    till.program().ClearText();

    EXPECT_FALSE(till.check("chkVoiceAuth").checked());
    EXPECT_FALSE(till.box("txtAuthNum").enabled());
}

TEST_F(NewEntry, ClearingLeavesTheInvoiceNumberEmptyWhenNoneIsOffered) {
    till.set(option::defaultInvoiceNumber, false);
    till.enter("txtInvoiceNumber", "INV-9");
    till.enter("txtPONumber", "PO-9");

    till.program().ClearText();

    EXPECT_EQ(till.text("txtInvoiceNumber"), "");
    EXPECT_EQ(till.text("txtPONumber"), "");
}

TEST_F(NewEntry, ClearingOffersTheInvoiceNumberWithoutThePurchaseOrderNumber) {
    till.set(option::invoiceNumberForPONumber, false);

    till.program().ClearText();

    EXPECT_EQ(till.text("txtInvoiceNumber"), "261121953000");
    EXPECT_EQ(till.text("txtPONumber"), "");
}

TEST_F(NewEntry, ResettingEmptiesTheFieldsOfTheEntry) {
    till.fillCharge();
    till.press("chkVoiceAuth");
    till.enter("txtAuthNum", "123456");
    till.enter("txtTransactionNumber", "7001");

    till.program().ResetFields();

    for (const char* name :
         {"txtCardName", "txtCardNumber", "txtCardCode", "txtAuthNum", "txtTransactionNumber",
          "txtBillToStreet", "txtBillToCity", "txtBillToZip", "txtEMail", "txtDescription"}) {
        EXPECT_EQ(till.text(name), "") << name;
    }
    EXPECT_EQ(till.list("cboExpMonth").listIndex(), 0);
    EXPECT_EQ(till.list("cboExpYear").listIndex(), 0);
    EXPECT_EQ(till.text("txtAmount"), "$0.00");
    EXPECT_EQ(till.text("txtTaxAmount"), "$0.00");
    EXPECT_EQ(till.list("cboBillToState").listIndex(), -1);
}

TEST_F(NewEntry, ResettingKeepsNumbersBoxesAndKind) {
    till.choose(1);
    till.enter("txtInvoiceNumber", "INV-1");
    till.enter("txtPONumber", "PO-1");
    till.check("chkVoiceAuth").setChecked(true);
    till.check("chkTaxExempt").setChecked(true);

    till.program().ResetFields();

    EXPECT_EQ(till.text("txtInvoiceNumber"), "INV-1");
    EXPECT_EQ(till.text("txtPONumber"), "PO-1");
    EXPECT_TRUE(till.check("chkVoiceAuth").checked());
    EXPECT_TRUE(till.check("chkTaxExempt").checked());
    EXPECT_EQ(till.program().TransType(), 1);
}

TEST_F(NewEntry, ResettingUsesTheCurrencyFormOfTheLocale) {
    till.desktop.locale.use(localeid::germany);

    till.program().ResetFields();

    EXPECT_EQ(till.text("txtAmount"), "0,00 \x80");
    EXPECT_EQ(till.text("txtTaxAmount"), "0,00 \x80");
}

TEST_F(NewEntry, ApprovalSwitchesTheTwoButtons) {
    till.program().SetTransactionApproved(true);
    EXPECT_FALSE(till.button("cmdSubmit").enabled());
    EXPECT_EQ(till.button("cmdCancel").caption(), "Finished");

    till.program().SetTransactionApproved(false);
    EXPECT_TRUE(till.button("cmdSubmit").enabled());
    EXPECT_EQ(till.button("cmdCancel").caption(), "Cancel");
}

} // namespace
} // namespace tollvane::test
