// The form without a mouse: the tab order of each kind of transaction, access keys, and a whole
// charge by keyboard.

#include "tests/scenarios/Till.h"

#include <cctype>
#include <map>

namespace tollvane::test {
namespace {

class TabOrder : public OpenTillTest {
protected:
    /// The stops from the selected kind of transaction until the walk comes back to it.
    std::vector<std::string> walk(int type) {
        till.choose(type);
        std::vector<std::string> stops;
        do {
            stops.push_back(till.focus());
            till.desktop.robot->tab();
        } while (till.focus() != "optTransType" && stops.size() < 40);
        return stops;
    }
};

TEST_F(TabOrder, OfAChargeGoesDownTheFormAndEndsAtTheButtons) {
    EXPECT_EQ(walk(0), (std::vector<std::string>{
                           "optTransType",     "txtCardName",  "txtCardNumber",   "txtCardCode",
                           "cboExpMonth",      "cboExpYear",   "txtAmount",       "chkTaxExempt",
                           "txtTaxAmount",     "chkVoiceAuth", "txtBillToStreet", "txtBillToCity",
                           "cboBillToState",   "txtBillToZip", "txtEMail",        "txtDescription",
                           "txtInvoiceNumber", "txtPONumber",  "cmdSubmit",       "cmdCancel"}));
}

TEST_F(TabOrder, OfARefundSkipsWhatItDoesNotNeed) {
    EXPECT_EQ(walk(1), (std::vector<std::string>{"optTransType", "txtCardNumber", "txtAmount",
                                                 "txtTransactionNumber", "txtEMail",
                                                 "txtDescription", "txtInvoiceNumber",
                                                 "txtPONumber", "cmdSubmit", "cmdCancel"}));
}

TEST_F(TabOrder, OfAVoidSkipsTheCardToo) {
    EXPECT_EQ(walk(2),
              (std::vector<std::string>{"optTransType", "txtAmount", "txtTransactionNumber",
                                        "txtEMail", "txtDescription", "txtInvoiceNumber",
                                        "txtPONumber", "cmdSubmit", "cmdCancel"}));
}

class AccessKeys : public OpenTillTest {};

TEST_F(AccessKeys, LeadToOneControlEach) {
    std::map<char, std::string> owners;
    for (Control* control : till.form().controls()) {
        auto* captioned = dynamic_cast<Captioned*>(control);
        const bool menuItem = control->kind() == ControlKind::menuItem;
        if (captioned == nullptr || menuItem || control->name() == "lblCompanyInfo") {
            continue;
        }
        const std::string caption = captioned->caption();
        const std::size_t mark = caption.find('&');
        if (mark != std::string::npos && mark + 1 < caption.size()) {
            const char key = static_cast<char>(std::toupper(caption[mark + 1]));
            const auto [owner, first] = owners.emplace(key, control->name());
            EXPECT_TRUE(first) << key << " belongs to " << owner->second << " and to "
                               << control->name();
        }
    }
    EXPECT_GE(owners.size(), 15U);
}

class ChargeByKeyboard : public OpenTillTest {
protected:
    void type(std::string_view text) {
        till.desktop.robot->tab();
        till.desktop.robot->typeText(text);
    }
    void press(int key, int times) {
        till.desktop.robot->tab();
        for (int i = 0; i < times; ++i) {
            till.desktop.robot->key(key);
        }
    }
};

TEST_F(ChargeByKeyboard, IsApprovedAndPosted) {
    type("Mary Ann Smith");
    type("4111111111111111");
    type("123");
    press(keycode::down, 3); // March
    press(keycode::down, 2); // next year
    type("25");
    till.desktop.robot->tab(); // tax exempt
    type("1.50");
    till.desktop.robot->tab(); // authorized by telephone
    type("1 Oak Street");
    type("Springfield");
    type("I"); // the first state with an I
    type("837041234");
    type("mary@example.org");
    type("Two chairs");

    till.desktop.robot->accessKey('S');

    ASSERT_EQ(till.operations(), (std::vector<std::string>{"AuthorizeAndCapture"}));
    const ChargeOperation& sent = till.lastOperation();
    EXPECT_EQ(sent.text("FirstName"), "MARY ANN");
    EXPECT_EQ(sent.text("LastName"), "SMITH");
    EXPECT_EQ(sent.text("CardNumber"), "4111111111111111");
    EXPECT_EQ(sent.field("x_card_code"), "123");
    EXPECT_EQ(sent.text("ExpirationDate"), "3-2027");
    EXPECT_EQ(sent.property("Amount"), Variant(Money::fromUnits(25)));
    EXPECT_EQ(sent.property("Tax"), Variant(Money::fromScaled(15'000)));
    EXPECT_EQ(sent.text("StreetAddress"), "1 Oak Street");
    EXPECT_EQ(sent.text("City"), "Springfield");
    EXPECT_EQ(sent.text("State"), "ID");
    EXPECT_EQ(sent.text("ZipCode"), "83704-1234");
    EXPECT_EQ(sent.text("CustomerEmail"), "mary@example.org");
    EXPECT_EQ(sent.text("Description"), "Two chairs");
    EXPECT_EQ(sent.text("InvoiceNumber"), "261121953000");
    EXPECT_EQ(sent.field("x_po_num"), "261121953000");
    EXPECT_EQ(till.desktop.boxes.last().title, "Approved");
    EXPECT_EQ(till.desktop.hostData.posted.size(), 1U);
}

TEST_F(ChargeByKeyboard, IsFollowedByANewOneWithTheFirstKeyInTheNameBox) {
    till.approveCharge();
    till.desktop.robot->accessKey('L');
    ASSERT_EQ(till.focus(), "txtCardName");

    till.desktop.robot->typeText("J");

    EXPECT_FALSE(till.program().TransactionApproved());
    EXPECT_EQ(till.text("txtCardName"), "J");
    EXPECT_EQ(till.text("txtCardNumber"), "");
    EXPECT_EQ(till.text("txtAmount"), "$0.00");
    EXPECT_EQ(till.button("cmdCancel").caption(), "Cancel");
}

} // namespace
} // namespace tollvane::test
