// The tax of a charge: never more than the amount, handed over as text, exempt only when zero.

#include "entry/TaxCheck.h"
#include "tests/scenarios/ValidationTest.h"

namespace tollvane::test {
namespace {

class Tax : public ChargeTest {
protected:
    static Message tooMuch() {
        return invalid("The tax amount is greater than the charged amount.\r\n\r\n"
                       "Enter a valid tax amount to continue.");
    }
};

TEST_F(Tax, EqualToTheAmountPasses) {
    till.enter("txtAmount", "$25.00");
    till.enter("txtTaxAmount", "$25.00");
    expectPassed();
}

TEST_F(Tax, OneCentAboveTheAmountIsRefused) {
    till.enter("txtAmount", "$25.00");
    till.enter("txtTaxAmount", "$25.01");
    expectRefused(tooMuch(), "txtTaxAmount");
}

TEST_F(Tax, IsComparedWithItsSign) {
    till.enter("txtAmount", "-25.00");
    till.enter("txtTaxAmount", "0.00");
    expectRefused(tooMuch(), "txtTaxAmount");
}

TEST_F(Tax, BelowANegativeAmountPasses) {
    till.enter("txtAmount", "-25.00");
    till.enter("txtTaxAmount", "-30.00");
    expectPassed();
}

TEST_F(Tax, JustBelowTheAmountIsNeverQuestioned) {
    till.enter("txtAmount", "$25.00");
    till.enter("txtTaxAmount", "$24.99");
    expectPassed();
}

struct TaxText {
    const char* what;
    const char* typed;
    const char* handedOver;
};

void PrintTo(const TaxText& row, std::ostream* out) {
    *out << row.what;
}

class TaxHandedOver : public ChargeTest, public ::testing::WithParamInterface<TaxText> {};

TEST_P(TaxHandedOver, AsTextWithoutTheCurrencySymbol) {
    till.enter("txtTaxAmount", GetParam().typed);

    till.submit();

    EXPECT_EQ(
        till.desktop.record.texts("charge.Tax ="),
        (std::vector<std::string>{"charge.Tax = \"" + std::string(GetParam().handedOver) + "\""}));
}

INSTANTIATE_TEST_SUITE_P(Written, TaxHandedOver,
                         ::testing::Values(TaxText{"WithSymbol", "$1.50", "1.50"},
                                           TaxText{"Bare", "1.50", "1.50"},
                                           TaxText{"InBrackets", "($1.50)", "(1.50)"},
                                           TaxText{"WithGroups", "$0,001.50", "0,001.50"}),
                         [](const auto& row) { return std::string(row.param.what); });

TEST_F(Tax, LosesTheSymbolOfTheOperatorsLocale) {
    till.desktop.locale.use(localeid::germany);
    till.enter("txtAmount", "25,00 \x80");
    till.enter("txtTaxAmount", "1,50 \x80");

    till.submit();

    EXPECT_EQ(till.desktop.record.texts("charge.Tax ="),
              (std::vector<std::string>{"charge.Tax = \"1,50 \""}));
    EXPECT_EQ(till.lastOperation().property("Tax"), Variant(Money::fromScaled(15'000)));
}

TEST_F(Tax, KeepsItsTextWhereTheLocaleHasNoSymbol) {
    till.desktop.locale.set(localeitem::currency, "");
    till.enter("txtAmount", "25.00");
    till.enter("txtTaxAmount", "1.50");

    till.submit();

    EXPECT_EQ(till.desktop.record.texts("charge.Tax ="),
              (std::vector<std::string>{"charge.Tax = \"1.50\""}));
}

struct Exemption {
    const char* what;
    bool ticked;
    const char* tax;
    bool exempt;
};

void PrintTo(const Exemption& row, std::ostream* out) {
    *out << row.what;
}

class TaxExemption : public ChargeTest, public ::testing::WithParamInterface<Exemption> {};

TEST_P(TaxExemption, NeedsTheTickedBoxAndNoTax) {
    till.check("chkTaxExempt").setChecked(GetParam().ticked);
    till.enter("txtTaxAmount", GetParam().tax);

    expectPassed();

    EXPECT_EQ(till.lastOperation().property("TaxExempt"), Variant(GetParam().exempt));
}

INSTANTIATE_TEST_SUITE_P(Of, TaxExemption,
                         ::testing::Values(Exemption{"TickedWithZero", true, "0.00", true},
                                           Exemption{"TickedWithFormattedZero", true, "$0.00",
                                                     true},
                                           Exemption{"TickedWithOneCent", true, "0.01", false},
                                           Exemption{"TickedWithNegativeTax", true, "-1.00", false},
                                           Exemption{"UntickedWithZero", false, "0.00", false},
                                           Exemption{"UntickedWithTax", false, "1.50", false}),
                         [](const auto& row) { return std::string(row.param.what); });

TEST_F(Tax, TickingTheBoxSetsTheTaxToZeroAndTheChargeIsExempt) {
    till.press("chkTaxExempt");
    EXPECT_EQ(till.text("txtTaxAmount"), "$0.00");

    expectPassed();

    EXPECT_EQ(till.lastOperation().property("TaxExempt"), Variant(true));
}

// The question about a questionable tax: its arithmetic never asks, but its two ways are there.

struct Pair {
    const char* what;
    std::int64_t tax;
    std::int64_t amount;
};

void PrintTo(const Pair& row, std::ostream* out) {
    *out << row.what;
}

class QuestionableTaxArithmetic : public ::testing::TestWithParam<Pair> {};

TEST_P(QuestionableTaxArithmetic, NeverAsks) {
    EXPECT_FALSE(TaxCheck::isQuestionable(Money::fromScaled(GetParam().tax),
                                          Money::fromScaled(GetParam().amount)));
}

INSTANTIATE_TEST_SUITE_P(For, QuestionableTaxArithmetic,
                         ::testing::Values(Pair{"ATenth", 10'000, 100'000},
                                           Pair{"AlmostAll", 99'999, 100'000},
                                           Pair{"TheWhole", 100'000, 100'000},
                                           Pair{"More", 200'000, 100'000},
                                           Pair{"MuchMore", 9'000'000'000, 1},
                                           Pair{"Nothing", 0, 0}, Pair{"Negatives", -1, -2}),
                         [](const auto& row) { return std::string(row.param.what); });

class QuestionableTax : public ChargeTest {
protected:
    bool ask(MessageAnswer answer) {
        till.desktop.boxes.answer(answer);
        till.enter("txtTaxAmount", "$20.00");
        const Desktop desktop = till.desktop.desktop();
        ChargeComponent charge(till.desktop.charge.object(), till.desktop.locale);
        ChargeInfoControls controls(till.form());
        return TaxCheck(desktop, controls, charge).confirmQuestionable();
    }
};

TEST_F(QuestionableTax, IsAskedWithNoAsTheDefaultButton) {
    ask(MessageAnswer::yes);

    EXPECT_EQ(till.boxes(), (std::vector<Message>{
                                question("Questionable Tax Amount",
                                         "The entered tax amount of $20.00 appears to be too much. "
                                         "Do you want to use this tax amount and continue.",
                                         2)}));
}

TEST_F(QuestionableTax, AnsweredNoReturnsToTheTax) {
    EXPECT_FALSE(ask(MessageAnswer::no));

    EXPECT_EQ(till.focus(), "txtTaxAmount");
    EXPECT_TRUE(till.desktop.record.texts("charge.Tax").empty());
}

TEST_F(QuestionableTax, AnsweredYesHandsTheTaxOverAndLeavesTheExemptionAlone) {
    EXPECT_TRUE(ask(MessageAnswer::yes));

    EXPECT_EQ(till.chargeCalls(), (std::vector<std::string>{"charge.Tax = \"20.00\""}));
}

} // namespace
} // namespace tollvane::test
