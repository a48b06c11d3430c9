// The amount and tax boxes while the operator works in them.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

const Colour kRed = Colour::rgb(255, 0, 0);
const Colour kNormal = Colour::System::windowText;

class FieldsMoney : public OpenTillTest, public ::testing::WithParamInterface<const char*> {
protected:
    TextBox& box() { return till.box(GetParam()); }
    void enterBox() { box().setFocus(); }
    void leaveBox() { till.box("txtEMail").setFocus(); }
    void type(std::string_view keys) { till.desktop.robot->typeText(keys); }
    int beeps() const { return till.desktop.beeper.beeps; }
};

TEST_P(FieldsMoney, LeavingAnEmptyBoxShowsZero) {
    for (const char* text : {"", "   "}) {
        enterBox();
        box().setText(text);

        leaveBox();

        EXPECT_EQ(box().text(), "$0.00");
        EXPECT_EQ(till.boxes(), std::vector<Message>());
    }
}

TEST_P(FieldsMoney, LeavingABoxWithoutADigitShowsZero) {
    for (const char* keys : {"-", ".", "-."}) {
        enterBox();
        type(keys);

        leaveBox();

        EXPECT_EQ(box().text(), "$0.00") << keys;
        EXPECT_EQ(till.boxes(), std::vector<Message>()) << keys;
    }
}

TEST_P(FieldsMoney, LeavingABoxWithLettersAloneShowsZero) {
    for (const char* text : {"abc", "/", ":"}) {
        enterBox();
        box().setText(text);

        leaveBox();

        EXPECT_EQ(box().text(), "$0.00") << text;
        EXPECT_EQ(till.boxes(), std::vector<Message>()) << text;
    }
}

TEST_P(FieldsMoney, ADecimalSignOfTwoCharactersIsTypedAsAPoint) {
    till.desktop.locale.set(localeitem::decimal, "::");
    till.desktop.locale.set(localeitem::moneyDecimal, "::");
    enterBox();
    box().setText("");

    type("1:.5.");

    EXPECT_EQ(box().text(), "1.5");
}

TEST_P(FieldsMoney, EnteringShowsTheBareNumberSelected) {
    box().setText("$1,234.50");

    enterBox();

    EXPECT_EQ(box().text(), "1234.50");
    EXPECT_EQ(box().selStart(), 0);
    EXPECT_EQ(box().selLength(), 7);
}

TEST_P(FieldsMoney, EnteringByMouseSelectsNothing) {
    till.desktop.mouse.down = true;

    enterBox();

    EXPECT_EQ(box().selLength(), 0);
}

TEST_P(FieldsMoney, LeavingShowsTheCurrencyFormat) {
    enterBox();
    type("1234.5");

    leaveBox();

    EXPECT_EQ(box().text(), "$1,234.50");
    EXPECT_EQ(box().maxLength(), 9);
    EXPECT_EQ(box().foreColour(), kNormal);
}

TEST_P(FieldsMoney, NegativeValuesAreRedUntilTheBoxIsEntered) {
    enterBox();
    type("-5");
    leaveBox();

    EXPECT_EQ(box().text(), "($5.00)");
    EXPECT_EQ(box().foreColour(), kRed);

    enterBox();
    EXPECT_EQ(box().foreColour(), kNormal);
    EXPECT_EQ(box().text(), "-5.00");

    type("5");
    leaveBox();
    EXPECT_EQ(box().text(), "$5.00");
    EXPECT_EQ(box().foreColour(), kNormal);
}

TEST_P(FieldsMoney, ANewEntryIsNotRed) {
    enterBox();
    type("-5");
    leaveBox();

    till.program().ClearText();

    EXPECT_EQ(box().foreColour(), kNormal);
}

TEST_P(FieldsMoney, RefusesTheEighthDigitWithABeep) {
    enterBox();
    type("1234567");
    EXPECT_EQ(beeps(), 0);

    type("8");

    EXPECT_EQ(box().text(), "1234567");
    EXPECT_EQ(beeps(), 1);
}

TEST_P(FieldsMoney, TakesOnlyWhatMakesANumber) {
    enterBox();

    type("-1a2..5-x\b0");

    EXPECT_EQ(box().text(), "-12.0");
}

TEST_P(FieldsMoney, ReplacesASelectedPoint) {
    enterBox();
    type("12.50");
    box().select(1, 2);

    type(".");

    EXPECT_EQ(box().text(), "1.50");
}

TEST_P(FieldsMoney, TakesAPastedNumber) {
    enterBox();

    till.desktop.robot->paste("99.95");

    EXPECT_EQ(box().text(), "99.95");
    EXPECT_EQ(beeps(), 0);
}

TEST_P(FieldsMoney, TakesAPastedNumberByKeys) {
    enterBox();

    till.desktop.robot->pasteWithKeys("99.95");

    EXPECT_EQ(box().text(), "99.95");
}

TEST_P(FieldsMoney, RefusesAPasteThatIsNoNumberWithABeep) {
    int beep = 0;
    for (const char* text : {"abc", "1.2.3", "12345678", "5-", "$5.00"}) {
        enterBox();
        box().setText("0.00");
        box().select(0, 4);

        till.desktop.robot->paste(text);

        EXPECT_EQ(box().text(), "0.00") << text;
        EXPECT_EQ(beeps(), ++beep) << text;
    }
}

TEST_P(FieldsMoney, KeepsTheFocusFromAControlThatMustNotHaveIt) {
    till.button("cmdModify").setTag("No Focus");
    enterBox();

    till.button("cmdModify").setFocus();

    EXPECT_EQ(till.focus(), GetParam());
    EXPECT_EQ(box().text(), "0.00");
}

TEST_P(FieldsMoney, FollowsALocaleWithADecimalComma) {
    till.desktop.locale.use(localeid::germany);
    till.program().ClearText();
    enterBox();
    EXPECT_EQ(box().text(), "0,00");

    type("12.5");
    EXPECT_EQ(box().text(), "12,5");
    type(",");
    EXPECT_EQ(box().text(), "12,5");
    leaveBox();
    EXPECT_EQ(box().text(), "12,50 \x80");

    enterBox();
    type("7,25");
    leaveBox();
    EXPECT_EQ(box().text(), "7,25 \x80");
}

TEST_P(FieldsMoney, SaysThatATextIsNoAmount) {
    box().setText("1x2");

    enterBox();

    const std::vector<Message> boxes = till.boxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text.substr(0, boxes[0].text.find(", ")),
              "There was an error showing the amount.\r\n\r\nError: 13");
    EXPECT_EQ(box().text(), "1x2") << "nothing is made of it";
    box().setText("1");
}

INSTANTIATE_TEST_SUITE_P(In, FieldsMoney, ::testing::Values("txtAmount", "txtTaxAmount"),
                         [](const auto& row) { return std::string(row.param); });

class FieldsTax : public OpenTillTest {};

TEST_F(FieldsTax, LengthsAreThoseOfTheTwoBoxes) {
    till.desktop.charge.setMaximumLength("x_tax", 8);
    till.box("txtAmount").setFocus();
    EXPECT_EQ(till.box("txtAmount").maxLength(), 9);

    till.box("txtTaxAmount").setFocus();
    EXPECT_EQ(till.box("txtAmount").maxLength(), 5) << "the length of $0.00";
    EXPECT_EQ(till.box("txtTaxAmount").maxLength(), 7);
}

TEST_F(FieldsTax, TickingExemptSetsItToZeroAndUntickingLeavesIt) {
    till.enter("txtTaxAmount", "$1.50");

    till.press("chkTaxExempt");
    EXPECT_EQ(till.text("txtTaxAmount"), "$0.00");

    till.enter("txtTaxAmount", "$2.50");
    till.press("chkTaxExempt");
    EXPECT_EQ(till.text("txtTaxAmount"), "$2.50");
}

TEST_F(FieldsTax, TickingExemptTakesTheRedFromANegativeTax) {
    till.box("txtTaxAmount").setFocus();
    till.desktop.robot->typeText("-5");
    till.box("txtEMail").setFocus();
    ASSERT_EQ(till.box("txtTaxAmount").foreColour(), kRed);

    till.press("chkTaxExempt");

    EXPECT_EQ(till.box("txtTaxAmount").foreColour(), kNormal);
}

TEST_F(FieldsTax, TheAmountShowsItsTipWhenTheSettingAsksForIt) {
    till.set("Options|ShowRefundVoidWarning", true);
    till.choose(2);

    till.box("txtAmount").setFocus();
    EXPECT_EQ(till.boxes(), (std::vector<Message>{information(
                                "Tip", "Enter the amount of the original transaction. The original "
                                       "transaction will be voided.")}));

    till.box("txtTaxAmount").setEnabled(true);
    till.box("txtTaxAmount").setFocus();
    EXPECT_EQ(till.boxes(), std::vector<Message>());
}

} // namespace
} // namespace tollvane::test
