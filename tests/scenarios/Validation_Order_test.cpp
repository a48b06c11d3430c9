// The order of the checks and of what they hand over, and the closing steps of all kinds.

#include "tests/scenarios/ValidationTest.h"

namespace tollvane::test {
namespace {

class ChecksOfACharge : public ChargeTest {};

TEST_F(ChecksOfACharge, RunInTheirOrderAndStopAtTheFirstThatFails) {
    // Everything is wrong at first; each correction leads to the next check.
    for (const char* option :
         {option::cardCodeRequired, option::addressRequired, option::descriptionRequired,
          option::invoiceNumberRequired, option::poNumberRequired}) {
        till.set(option, true);
    }
    for (const char* box :
         {"txtCardName", "txtCardNumber", "txtCardCode", "txtBillToStreet", "txtBillToCity",
          "txtBillToZip", "txtDescription", "txtInvoiceNumber", "txtPONumber"}) {
        till.enter(box, "");
    }
    till.enterState("");
    till.enterExpiry(10, 2026);
    till.enter("txtAmount", "$0.00");
    till.enter("txtTaxAmount", "$30.00");
    till.press("chkVoiceAuth");
    till.enter("txtAuthNum", "1");

    std::vector<std::string> road;
    const auto submitted = [&] {
        till.submit();
        const std::vector<Message> boxes = till.boxes();
        ASSERT_EQ(boxes.size(), 1U);
        road.push_back(boxes[0].title + ": " + till.focus());
    };
    submitted();
    till.enter("txtCardName", "Mary Ann Smith");
    submitted();
    till.enter("txtCardNumber", "4111111111111111");
    submitted();
    till.enter("txtCardCode", "12");
    submitted();
    till.enterExpiry(11, 2026);
    submitted();
    till.enter("txtAmount", "$25.00");
    submitted();
    till.enter("txtTaxAmount", "$1.50");
    submitted();
    till.enter("txtBillToStreet", "1 Oak Street");
    submitted();
    till.enterState("IL");
    submitted();
    till.enter("txtBillToCity", "Springfield");
    submitted();
    till.enter("txtBillToZip", "62701");
    submitted();
    till.enter("txtAuthNum", "V12345");
    submitted();
    till.enter("txtCardCode", "123");
    submitted();
    till.enter("txtDescription", "Two chairs");
    submitted();
    till.enter("txtInvoiceNumber", "INV-1");
    submitted();
    till.enter("txtPONumber", "PO-1");
    submitted();

    EXPECT_EQ(
        road,
        (std::vector<std::string>{
            "Invalid Field: txtCardName", "Invalid Field: txtCardNumber",
            "Required Field Missing: txtCardCode", "Invalid Field: cboExpMonth",
            "Invalid Field: txtAmount", "Invalid Field: txtTaxAmount",
            "Incomplete Billing Address: txtBillToStreet",
            "Incomplete Billing Address: cboBillToState",
            "Incomplete Billing Address: txtBillToCity", "Incomplete Billing Address: txtBillToZip",
            "Invalid Field: txtAuthNum", "Required Field Missing: txtCardCode",
            "Required Field Missing: txtDescription", "Required Field Missing: txtInvoiceNumber",
            "Required Field Missing: txtPONumber", "Approved: cmdCancel"}));
    EXPECT_EQ(till.operations(), (std::vector<std::string>{"CaptureVoiceAuth"}));
}

TEST_F(ChecksOfACharge, HandTheirValuesOverInTheirOrder) {
    till.submit();

    EXPECT_EQ(till.chargeCalls(),
              (std::vector<std::string>{"charge.ClearFields()",
                                        "charge.LastName = \"Smith\"",
                                        "charge.FirstName = \"Mary Ann\"",
                                        "charge.CardNumber = secret(16)",
                                        "charge.ExpirationDate = \"3-2027\"",
                                        "charge.Amount = 25",
                                        "charge.Tax = \"1.50\"",
                                        "charge.TaxExempt = false",
                                        "charge.StreetAddress = \"1 Oak Street\"",
                                        "charge.City = \"Springfield\"",
                                        "charge.State = \"IL\"",
                                        "charge.ZipCode = \"62701\"",
                                        "charge.TransactionField(\"x_card_code\")",
                                        "field x_card_code.cTransactionFields_Value = secret(3)",
                                        "charge.InvoiceNumber = \"INV-1\"",
                                        "charge.TransactionField(\"x_po_num\")",
                                        "field x_po_num.cTransactionFields_Value = \"PO-1\"",
                                        "charge.Description = \"Two chairs\"",
                                        "charge.CustomerEmail = \"mary@example.org\"",
                                        "charge.AuthorizeAndCapture()"}));
}

TEST_F(ChecksOfACharge, ReadTheAnswerOnlyAfterTheOperation) {
    till.submit();

    const std::vector<std::string> calls = till.desktop.record.texts("charge.");
    const auto operation = std::find(calls.begin(), calls.end(), "charge.AuthorizeAndCapture()");
    ASSERT_NE(operation, calls.end());
    for (const char* answer :
         {"charge.ApprovalCode", "charge.TransactionID", "charge.ResponseReasonText"}) {
        EXPECT_EQ(std::find(calls.begin(), operation, answer), operation) << answer;
        EXPECT_NE(std::find(operation, calls.end(), answer), calls.end()) << answer;
    }
}

TEST_F(ChecksOfACharge, StartFromClearedFieldsEveryTime) {
    till.enter("txtPONumber", "");
    till.enter("txtDescription", "First");
    till.desktop.charge.answer(declined(2, 2, "Declined."));
    till.submit();
    till.boxes();
    till.enter("txtMagStripe", "%B4111111111111111^SMITH/JOHN^2712101000000?");

    till.submit();

    EXPECT_EQ(till.desktop.charge.cleared, 2);
    EXPECT_EQ(till.lastOperation().text("CardNumber"), "") << "nothing is left of the keyed card";
}

TEST_F(ChecksOfACharge, LeaveWhatWasHandedOverBeforeTheFailedOne) {
    till.enter("txtAmount", "$0.00");

    till.submit();
    till.boxes();

    EXPECT_EQ(till.held("CardNumber"), "4111111111111111");
    EXPECT_EQ(till.held("ExpirationDate"), "3-2027");
    EXPECT_EQ(till.held("StreetAddress"), "");
}

TEST_F(ChecksOfACharge, ThatFailLeaveTheFormEnabledAndThePointerNormal) {
    till.enter("txtCardName", "");
    bool enabledMeanwhile = false;
    till.desktop.boxes.whileOpen = [&](const Message&) {
        enabledMeanwhile = till.button("cmdSubmit").enabled() && till.box("txtAmount").enabled();
    };

    till.submit();

    EXPECT_TRUE(enabledMeanwhile);
    till.expectUsable();
    EXPECT_TRUE(till.operations().empty());
    till.boxes();
}

TEST_F(ChecksOfACharge, ShowTheMessageBeforeTheyMoveTheFocus) {
    till.enter("txtCardName", "");
    std::string focus;
    till.desktop.boxes.whileOpen = [&](const Message&) { focus = till.focus(); };

    till.submit();

    EXPECT_EQ(focus, "cmdSubmit");
    EXPECT_EQ(till.focus(), "txtCardName");
    till.boxes();
}

struct OrderNumbers {
    const char* what;
    bool useInvoiceNumber;
    const char* invoice;
    const char* purchaseOrder;
    const char* sent;
};

void PrintTo(const OrderNumbers& row, std::ostream* out) {
    *out << row.what;
}

class PurchaseOrder : public ChargeTest, public ::testing::WithParamInterface<OrderNumbers> {};

TEST_P(PurchaseOrder, IsTheInvoiceNumberWhereItIsMissingAndTheShopWantsThat) {
    till.set(option::invoiceNumberForPONumber, GetParam().useInvoiceNumber);
    till.enter("txtInvoiceNumber", GetParam().invoice);
    till.enter("txtPONumber", GetParam().purchaseOrder);

    expectPassed();

    EXPECT_EQ(sent("InvoiceNumber"), GetParam().invoice);
    EXPECT_EQ(sentField("x_po_num"), GetParam().sent);
}

INSTANTIATE_TEST_SUITE_P(
    Sent, PurchaseOrder,
    ::testing::Values(OrderNumbers{"WantedAndMissing", true, "INV-1", "", "INV-1"},
                      OrderNumbers{"WantedAndThere", true, "INV-1", "PO-1", "PO-1"},
                      OrderNumbers{"WantedAndBothMissing", true, "", "", ""},
                      OrderNumbers{"NotWantedAndMissing", false, "INV-1", "", ""},
                      OrderNumbers{"NotWantedAndThere", false, "INV-1", "PO-1", "PO-1"},
                      OrderNumbers{"WantedAndABlank", true, "INV-1", " ", " "}),
    [](const auto& row) { return std::string(row.param.what); });

TEST_F(ChecksOfACharge, PurchaseOrderIsTheInvoiceNumberAsTheComponentKeptIt) {
    till.set(option::invoiceNumberForPONumber, true);
    till.enter("txtPONumber", "");
    FakeObject& component = till.desktop.charge.script();
    component.property("InvoiceNumber", nullptr, [&component](const Variant&) {
        component.setValue("InvoiceNumber", std::string("KEPT"));
    });

    till.submit();

    EXPECT_EQ(till.desktop.record.texts("field x_po_num"),
              (std::vector<std::string>{"field x_po_num.cTransactionFields_Value = \"KEPT\""}));
    till.boxes();
}

} // namespace
} // namespace tollvane::test
