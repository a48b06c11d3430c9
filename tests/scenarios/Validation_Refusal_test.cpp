// Refusals besides the plain ones: of a field that cannot take the focus, or that has a tip of its
// own, and a form without a type, which refuses nothing.

#include "entry/ChargeInfoLayout.h"
#include "entry/Validation.h"
#include "tests/scenarios/ValidationTest.h"

#include <memory>

namespace tollvane::test {
namespace {

class ValidationWithoutAType : public OpenTillTest {};

TEST_F(ValidationWithoutAType, ChecksNothingAndHandsTheOrderOver) {
    // A form as it is before a type was ever selected, every field empty.
    const Desktop desktop = till.desktop.desktop();
    const std::unique_ptr<Form> form = till.desktop.forms->create(chargeInfoLayout());
    ChargeInfoControls controls(*form);
    ASSERT_EQ(controls.selectedTransactionType(), -1);
    controls.txtInvoiceNumber.setText("INV-1");
    controls.txtDescription.setText("Two chairs");
    controls.txtEMail.setText("mary@example.org");
    ChargeComponent charge(till.desktop.charge.object(), till.desktop.locale);

    EXPECT_TRUE(Validation(desktop, controls, charge).ValidateTransaction());

    EXPECT_EQ(till.boxes(), std::vector<Message>());
    EXPECT_EQ(till.chargeCalls(),
              (std::vector<std::string>{"charge.ClearFields()", "charge.InvoiceNumber = \"INV-1\"",
                                        "charge.TransactionField(\"x_po_num\")",
                                        "field x_po_num.cTransactionFields_Value = \"INV-1\"",
                                        "charge.Description = \"Two chairs\"",
                                        "charge.CustomerEmail = \"mary@example.org\""}));
}

class RefusedField : public ChargeTest {
protected:
    void warn() { till.set("Options|ShowRefundVoidWarning", true); }
};

TEST_F(RefusedField, ThatIsDisabledIsToldInOneBoxAndKeepsTheFocus) {
    till.press("chkTaxExempt");
    till.program().LayoutForType();
    till.enter("txtAmount", "-25");
    ASSERT_FALSE(till.box("txtTaxAmount").enabled());

    till.submit();

    EXPECT_EQ(till.boxes(), (std::vector<Message>{
                                invalid("The tax amount is greater than the charged amount.\r\n\r\n"
                                        "Enter a valid tax amount to continue.")}));
    EXPECT_EQ(till.focus(), "cmdSubmit");
    EXPECT_TRUE(till.operations().empty());
    till.expectUsable();
}

TEST_F(RefusedField, AmountOfAChargeIsRefusedBeforeItsTip) {
    warn();
    till.enter("txtAmount", "$0.00");

    expectRefused({zeroAmount(), information("Tip", "Enter the amount to be charged.")},
                  "txtAmount");
}

TEST_F(RefusedField, AmountOfARefundIsRefusedBeforeItsTip) {
    warn();
    till.fillRefund();
    till.enter("txtAmount", "$0.00");

    expectRefused(
        {zeroAmount(), information("Tip", "Enter any amount up to the amount of the original "
                                          "transaction.")},
        "txtAmount");
}

TEST_F(RefusedField, AmountOfAVoidIsRefusedBeforeItsTip) {
    warn();
    till.fillVoid();
    till.enter("txtAmount", "$0.00");

    expectRefused({zeroAmount(), information("Tip", "Enter the amount of the original transaction. "
                                                    "The original transaction will be voided.")},
                  "txtAmount");
}

} // namespace
} // namespace tollvane::test
