// The card code of a charge, the number of a telephone authorization, and the fields that the shop
// requires.

#include "tests/scenarios/ValidationTest.h"

namespace tollvane::test {
namespace {

class CardCode : public ChargeTest {
protected:
    static Message notEntered() {
        return question("Card Security Code Not Entered",
                        "The card code has not been entered. Entering a card code may favorably "
                        "affect the rate charged for this transaction.\r\n\r\n"
                        "Do you want to return to the main form and enter the card code now?");
    }
    static Message tooShort() {
        return missing("The card code is invalid.\r\n\r\n"
                       "The card code is 3 or 4 digits long and usually found on the back credit "
                       "card.");
    }
};

TEST_F(CardCode, WhenRequiredMustNotBeEmpty) {
    till.set(option::cardCodeRequired, true);
    till.enter("txtCardCode", "");
    expectRefused(missing("The card code field is required to submit this transaction.\r\n\r\n"
                          "Enter the card code for this credit card to continue."),
                  "txtCardCode");
}

class WhereNothingWasStored : public OpenTillTest {};

TEST_F(WhereNothingWasStored, TheCardCodeIsRequired) {
    till.fillCharge();
    till.enter("txtCardCode", "");

    till.submit();

    EXPECT_EQ(till.boxes().at(0).title, "Required Field Missing");
    EXPECT_EQ(till.focus(), "txtCardCode");
}

TEST_F(CardCode, OfOneFigureIsRefused) {
    till.enter("txtCardCode", "1");
    expectRefused(tooShort(), "txtCardCode");
}

TEST_F(CardCode, OfTwoFiguresIsRefused) {
    till.enter("txtCardCode", "12");
    expectRefused(tooShort(), "txtCardCode");
}

TEST_F(CardCode, OfThreeFiguresIsSent) {
    till.enter("txtCardCode", "123");
    expectPassed();
    EXPECT_EQ(sentField("x_card_code"), "123");
}

TEST_F(CardCode, OfFourFiguresIsSent) {
    till.enter("txtCardCode", "1234");
    expectPassed();
    EXPECT_EQ(sentField("x_card_code"), "1234");
}

TEST_F(CardCode, OfFiveFiguresIsTheBoxesMatter) {
    till.enter("txtCardCode", "12345");
    expectPassed();
    EXPECT_EQ(sentField("x_card_code"), "12345");
}

TEST_F(CardCode, MissingAnsweredYesReturnsToIt) {
    till.enter("txtCardCode", "");
    till.desktop.boxes.answer(MessageAnswer::yes);
    expectRefused(notEntered(), "txtCardCode");
}

TEST_F(CardCode, MissingAnsweredNoSubmitsWithoutIt) {
    till.enter("txtCardCode", "");
    till.desktop.boxes.answer(MessageAnswer::no);

    till.submit();

    const std::vector<Message> boxes = till.boxes();
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[0], notEntered());
    EXPECT_EQ(boxes[1].title, "Approved");
    EXPECT_EQ(sentField("x_card_code"), "");
}

TEST_F(CardCode, OfADisabledBoxIsSentEmptyWithoutAQuestion) {
    till.enter("txtCardCode", "12");
    till.box("txtCardCode").setEnabled(false);

    expectPassed();

    EXPECT_EQ(sentField("x_card_code"), "");
    EXPECT_EQ(till.desktop.record.texts("field x_card_code"),
              (std::vector<std::string>{"field x_card_code.cTransactionFields_Value = \"\""}));
}

struct AuthNumber {
    const char* what;
    const char* number;
    bool passes;
};

void PrintTo(const AuthNumber& row, std::ostream* out) {
    *out << row.what;
}

class TelephoneAuthorization : public ChargeTest,
                               public ::testing::WithParamInterface<AuthNumber> {};

TEST_P(TelephoneAuthorization, HasExactlySixCharacters) {
    till.press("chkVoiceAuth");
    till.enter("txtAuthNum", GetParam().number);

    if (GetParam().passes) {
        expectPassed();
        EXPECT_EQ(till.lastOperation().argument, GetParam().number);
    } else {
        expectRefused(invalid("The authorization number is invalid.\r\n\r\n"
                              "Enter a valid authorization number to continue."),
                      "txtAuthNum");
    }
}

INSTANTIATE_TEST_SUITE_P(Of, TelephoneAuthorization,
                         ::testing::Values(AuthNumber{"None", "", false},
                                           AuthNumber{"Five", "12345", false},
                                           AuthNumber{"Six", "12345A", true},
                                           AuthNumber{"SixBlanks", "      ", true},
                                           AuthNumber{"Seven", "1234567", false}),
                         [](const auto& row) { return std::string(row.param.what); });

class Unticked : public ChargeTest {};

TEST_F(Unticked, TelephoneBoxChecksNoNumber) {
    till.enter("txtAuthNum", "1");
    expectPassed();
    EXPECT_EQ(till.operations().at(0), "AuthorizeAndCapture");
}

struct RequiredField {
    const char* box;
    const char* option;
    const char* text;
};

void PrintTo(const RequiredField& row, std::ostream* out) {
    *out << row.box;
}

class Required : public ChargeTest, public ::testing::WithParamInterface<RequiredField> {};

TEST_P(Required, FieldMustNotBeEmpty) {
    till.set(GetParam().option, true);
    till.enter(GetParam().box, "");
    expectRefused(missing(GetParam().text), GetParam().box);
}

TEST_P(Required, FieldThatIsFilledInPasses) {
    till.set(GetParam().option, true);
    till.enter(GetParam().box, " ");
    expectPassed();
}

TEST_P(Required, FieldMayBeEmptyWhenNobodyRequiresIt) {
    till.enter(GetParam().box, "");
    expectPassed();
}

TEST_P(Required, SettingIsReadWhenTheOperatorSubmits) {
    till.enter(GetParam().box, "");
    till.set(GetParam().option, true);
    till.submit();
    EXPECT_EQ(till.boxes().at(0).title, "Required Field Missing");

    till.set(GetParam().option, false);
    till.submit();
    EXPECT_EQ(till.boxes().at(0).title, "Approved");
}

INSTANTIATE_TEST_SUITE_P(
    By, Required,
    ::testing::Values(
        RequiredField{"txtDescription", option::descriptionRequired,
                      "The description field is required to submit this transaction.\r\n\r\n"
                      "Enter a description for this charge to continue."},
        RequiredField{"txtInvoiceNumber", option::invoiceNumberRequired,
                      "The invoice number field is required to submit this transaction.\r\n\r\n"
                      "Enter an invoice number for this charge to continue."},
        RequiredField{"txtPONumber", option::poNumberRequired,
                      "The PO number field is required to submit this transaction.\r\n\r\n"
                      "Enter an PO number for this charge to continue."}),
    [](const auto& row) { return std::string(row.param.box); });

} // namespace
} // namespace tollvane::test
