// The checks of a charge up to the amount: holder, card, expiry, amount.

#include "tests/scenarios/ValidationTest.h"

namespace tollvane::test {
namespace {

const char* const kCardRefusal = "The credit card number is invalid.\r\n\r\n"
                                 "Correct the card number to continue.";
const char* const kCheckerRefusal = "The credit card number contains errors.\r\n\r\n"
                                    "Correct the card number to continue.";
const char* const kTrack = "%B4111111111111112^SMITH/JOHN^2712101000000?";

class Charge : public ChargeTest {};

TEST_F(Charge, NeedsTheHoldersName) {
    till.enter("txtCardName", "");
    expectRefused(invalid("The card holder's name is invalid.\r\n\r\n"
                          "Correct the card number to continue."),
                  "txtCardName");
}

struct Name {
    const char* what;
    const char* typed;
    const char* first;
    const char* last;
};

void PrintTo(const Name& row, std::ostream* out) {
    *out << row.what;
}

class HoldersName : public ChargeTest, public ::testing::WithParamInterface<Name> {};

TEST_P(HoldersName, IsSplitAtItsLastBlank) {
    till.enter("txtCardName", GetParam().typed);

    expectPassed();

    EXPECT_EQ(sent("FirstName"), GetParam().first);
    EXPECT_EQ(sent("LastName"), GetParam().last);
}

INSTANTIATE_TEST_SUITE_P(
    Of, HoldersName,
    ::testing::Values(Name{"ThreeWords", "Mary Ann Smith", "Mary Ann", "Smith"},
                      Name{"OneWord", "Cher", "Cher", ""},
                      Name{"TwoWordsWithTwoBlanks", "Ann  Lee", "Ann ", "Lee"},
                      Name{"TwoWords", "Ann Lee", "Ann", "Lee"},
                      Name{"WordAndBlank", "Ann ", "Ann", ""},
                      Name{"BlankAndWord", " Lee", "", "Lee"}, Name{"OneBlank", " ", "", ""}),
    [](const auto& row) { return std::string(row.param.what); });

TEST_F(Charge, OfASwipedCardSendsTheTrackAndNoNumber) {
    till.enter("txtMagStripe", kTrack);

    expectPassed();

    EXPECT_EQ(sent("Track1"), kTrack);
    EXPECT_EQ(sent("CardNumber"), "");
}

TEST_F(Charge, OfASwipedCardNeverAsksTheChecker) {
    till.enter("txtCardNumber", "4111111111111112");
    till.enter("txtMagStripe", kTrack);

    expectPassed();

    EXPECT_TRUE(till.desktop.checker.checked.empty());
    EXPECT_EQ(sent("Track1"), kTrack);
    EXPECT_EQ(sent("CardNumber"), "");
}

TEST_F(Charge, OfASwipedCardDoesNotNeedTheRequiredCode) {
    till.set(option::cardCodeRequired, true);
    till.enter("txtCardCode", "");
    till.enter("txtMagStripe", kTrack);
    till.box("txtCardCode").setEnabled(false);

    expectPassed();

    EXPECT_EQ(sentField("x_card_code"), "");
}

TEST_F(Charge, OfASwipedCardStillChecksTheExpiry) {
    till.enter("txtMagStripe", kTrack);
    till.desktop.clock.set({2027, 4, 1, 0, 0, 0});

    till.submit();

    EXPECT_EQ(till.boxes().at(0).title, "Invalid Field");
    EXPECT_EQ(till.focus(), "cboExpMonth");
}

TEST_F(Charge, KeyedNumberIsJudgedByTheCheckerAndSent) {
    expectPassed();

    ASSERT_EQ(till.desktop.checker.checked.size(), 1U);
    EXPECT_EQ(till.desktop.checker.checked[0].view(), "4111111111111111");
    EXPECT_EQ(sent("CardNumber"), "4111111111111111");
    EXPECT_EQ(sent("Track1"), "");
}

TEST_F(Charge, RejectedNumberShowsTheCheckersWordAndThenTheValidations) {
    till.enter("txtCardNumber", "4111111111111112");
    expectRefused({information("Invalid Card Number", kCheckerRefusal), invalid(kCardRefusal)},
                  "txtCardNumber");
    EXPECT_EQ(till.held("CardNumber"), "");
}

TEST_F(Charge, EmptyNumberShowsOnlyTheValidationsWord) {
    till.enter("txtCardNumber", "");
    expectRefused(invalid(kCardRefusal), "txtCardNumber");
}

TEST_F(Charge, MissingCheckerShowsItsErrorAndThenTheValidationsWord) {
    till.desktop.automation.unregister("{B0FF1329-8BB0-4C7B-BE63-416A3AEAA8D3}");

    till.submit();

    const std::vector<Message> boxes = till.boxes();
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[0], information("{B0FF1329-8BB0-4C7B-BE63-416A3AEAA8D3}:ValidateCardNumber",
                                    "There was an error validating the credit card number.\r\n\r\n"
                                    "Error: 429 ,ActiveX component can't create object"));
    EXPECT_EQ(boxes[1], invalid(kCardRefusal));
    EXPECT_EQ(till.focus(), "txtCardNumber");
    EXPECT_TRUE(till.operations().empty());
}

struct Expiry {
    const char* what;
    int month;
    int year;
    bool passes;
};

void PrintTo(const Expiry& row, std::ostream* out) {
    *out << row.what;
}

/// Today is 21 November 2026.
class CardExpiry : public ChargeTest, public ::testing::WithParamInterface<Expiry> {};

TEST_P(CardExpiry, CountsCalendarMonths) {
    // The list begins with this year: an earlier one needs an earlier day to fill it.
    till.enterExpiry(GetParam().month, GetParam().year);

    if (GetParam().passes) {
        expectPassed();
    } else {
        expectRefused(invalid("The expiration date is invalid.\r\n\r\n"
                              "If the expiration date is correct this card is exprired. "
                              "If not, correct the expiration date to continue."),
                      "cboExpMonth");
    }
}

INSTANTIATE_TEST_SUITE_P(Of, CardExpiry,
                         ::testing::Values(Expiry{"ThisMonth", 11, 2026, true},
                                           Expiry{"LastMonth", 10, 2026, false},
                                           Expiry{"JanuaryOfThisYear", 1, 2026, false},
                                           Expiry{"NextMonth", 12, 2026, true},
                                           Expiry{"JanuaryOfNextYear", 1, 2027, true},
                                           Expiry{"TenYearsOn", 12, 2036, true}),
                         [](const auto& row) { return std::string(row.param.what); });

TEST_F(Charge, CardExpiresWithTheLastMomentOfItsMonth) {
    till.enterExpiry(12, 2026);
    till.desktop.clock.set({2026, 12, 31, 23, 59, 59});
    expectPassed();
}

TEST_F(Charge, CardHasExpiredWithTheFirstMomentOfTheNextMonth) {
    till.enterExpiry(12, 2026);
    till.desktop.clock.set({2027, 1, 1, 0, 0, 0});
    till.submit();
    EXPECT_EQ(till.focus(), "cboExpMonth");
    EXPECT_EQ(till.boxes().at(0).title, "Invalid Field");
}

TEST_F(Charge, ExpiryIsSentAsMonthAndYearWithoutLeadingZero) {
    till.enterExpiry(3, 2027);
    expectPassed();
    EXPECT_EQ(sent("ExpirationDate"), "3-2027");
}

TEST_F(Charge, ExpiryIsSentWithTwoFiguresWhereItHasThem) {
    till.enterExpiry(12, 2030);
    expectPassed();
    EXPECT_EQ(sent("ExpirationDate"), "12-2030");
}

class UnchosenExpiry : public ValidationTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(UnchosenExpiry, IsReportedAsAnErrorOfTheSubmission) {
    till.fillCharge();
    till.list(GetParam()).setListIndex(-1);

    till.submit();

    EXPECT_EQ(till.boxes(), (std::vector<Message>{
                                information("", "There was an error getting an approval.\r\n\r\n"
                                                "Error: 381, Invalid property array index")}));
    EXPECT_TRUE(till.operations().empty());
    till.expectUsable();
}

INSTANTIATE_TEST_SUITE_P(In, UnchosenExpiry, ::testing::Values("cboExpMonth", "cboExpYear"),
                         [](const auto& row) { return std::string(row.param); });

TEST_F(Charge, OfNothingIsRefused) {
    till.enter("txtAmount", "$0.00");
    expectRefused(zeroAmount(), "txtAmount");
}

TEST_F(Charge, OfLessThanTheFourthPlaceIsRefused) {
    till.enter("txtAmount", "0.00004");
    expectRefused(zeroAmount(), "txtAmount");
}

TEST_F(Charge, NegativeAmountPassesAndIsSentAsItsAbsoluteValue) {
    till.enter("txtAmount", "-25.00");
    till.enter("txtTaxAmount", "-25.00"); // a tax of zero would be greater than the amount

    expectPassed();

    EXPECT_EQ(till.lastOperation().property("Amount"), Variant(Money::fromUnits(25)));
}

TEST_F(Charge, AmountKeepsFourPlaces) {
    till.enter("txtAmount", "12.34565");
    expectPassed();
    EXPECT_EQ(till.lastOperation().property("Amount"), Variant(Money::fromScaled(123'456)));
}

TEST_F(Charge, AmountWithSymbolAndGroupsIsUnderstood) {
    till.enter("txtAmount", "$1,234.50");
    expectPassed();
    EXPECT_EQ(till.lastOperation().property("Amount"), Variant(Money::fromScaled(12'345'000)));
}

struct BadMoney {
    const char* what;
    const char* box;
    const char* text;
    const char* error;
};

void PrintTo(const BadMoney& row, std::ostream* out) {
    *out << row.what;
}

class UnreadableMoney : public ChargeTest, public ::testing::WithParamInterface<BadMoney> {};

TEST_P(UnreadableMoney, IsReportedAsAnErrorOfTheSubmission) {
    till.enter(GetParam().box, GetParam().text);

    till.submit();

    EXPECT_EQ(till.boxes(), (std::vector<Message>{information(
                                "", "There was an error getting an approval.\r\n\r\nError: " +
                                        std::string(GetParam().error))}));
    EXPECT_TRUE(till.operations().empty());
    till.expectUsable();
}

INSTANTIATE_TEST_SUITE_P(
    In, UnreadableMoney,
    ::testing::Values(BadMoney{"AmountOfWords", "txtAmount", "ten", "13, Type mismatch"},
                      BadMoney{"EmptyAmount", "txtAmount", "", "13, Type mismatch"},
                      BadMoney{"HugeAmount", "txtAmount", "1000000000000000", "6, Overflow"},
                      BadMoney{"TaxOfWords", "txtTaxAmount", "one", "13, Type mismatch"},
                      BadMoney{"EmptyTax", "txtTaxAmount", "", "13, Type mismatch"},
                      BadMoney{"HugeTax", "txtTaxAmount", "1e20", "6, Overflow"}),
    [](const auto& row) { return std::string(row.param.what); });

} // namespace
} // namespace tollvane::test
