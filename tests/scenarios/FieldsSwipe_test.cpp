// A card swiped at the transaction form.

#include "tests/scenarios/FieldsTest.h"

namespace tollvane::test {
namespace {

constexpr const char* kCard = "%B4111111111111111^SMITH/JOHN^2712101000000?";
constexpr const char* kTrack2 = ";4111111111111111=27121010000000000?";
constexpr const char* kTrack3 = "+014111111111111111=7247800=000000000?";

class FieldsSwipe : public FieldsTest {
protected:
    void expectTaken(const std::string& track = kCard) {
        EXPECT_EQ(till.text("txtCardNumber"), "4111111111111111");
        EXPECT_EQ(till.text("txtCardName"), "JOHN SMITH");
        EXPECT_EQ(till.text("txtMagStripe"), track);
        EXPECT_EQ(till.list("cboExpMonth").listIndex(), 11);
        EXPECT_EQ(till.list("cboExpYear").text(), "2027");
        EXPECT_EQ(till.focus(), "txtAmount");
        EXPECT_EQ(till.text("txtKbBuffer").find('^'), std::string::npos) << "track 1 is gone";
    }
    void expectNothingElse() {
        for (const char* name :
             {"txtCardCode", "txtAuthNum", "txtTransactionNumber", "txtBillToStreet",
              "txtBillToCity", "txtBillToZip", "txtEMail", "txtDescription"}) {
            EXPECT_EQ(till.text(name), "") << name;
        }
        EXPECT_EQ(till.text("txtAmount"), "0.00");
        EXPECT_EQ(till.text("txtTaxAmount"), "$0.00");
        EXPECT_EQ(till.text("txtInvoiceNumber"), "261121953000");
        EXPECT_EQ(till.text("txtPONumber"), "261121953000");
        EXPECT_EQ(till.boxes(), std::vector<Message>());
        EXPECT_TRUE(till.operations().empty());
        EXPECT_TRUE(till.isOpen());
    }
};

TEST_F(FieldsSwipe, FillsTheCardFieldsAndKeepsTheTrack) {
    goTo("txtDescription");

    type(kCard);

    expectTaken();
    expectNothingElse();
    EXPECT_EQ(beeps(), 1);
}

class FieldsSwipeInto : public FieldsSwipe, public ::testing::WithParamInterface<const char*> {};

TEST_P(FieldsSwipeInto, NothingLandsInTheFieldThatHasTheFocus) {
    goTo(GetParam());

    type(std::string(kCard) + "\r" + kTrack2 + "\r" + kTrack3 + "\r");
    pause();

    expectTaken();
    expectNothingElse();
}

TEST_P(FieldsSwipeInto, TrackTwoAloneLeavesNothingBehind) {
    goTo(GetParam());
    const std::string before = GetParam() == std::string("txtAmount")      ? "0.00"
                               : GetParam() == std::string("txtTaxAmount") ? "0.00"
                                                                           : "";

    type(std::string(kTrack2) + "7\r");
    pause();

    EXPECT_EQ(till.focus(), GetParam());
    EXPECT_EQ(till.text("txtCardNumber"), "");
    EXPECT_TRUE(till.operations().empty());
    if (auto* box = dynamic_cast<TextBox*>(&till.form().find(GetParam()))) {
        EXPECT_EQ(box->text(), box->name() == "txtInvoiceNumber" ? "261121953000" : before);
    }
}

INSTANTIATE_TEST_SUITE_P(In, FieldsSwipeInto,
                         ::testing::Values("txtCardName", "txtCardNumber", "txtCardCode",
                                           "cboExpMonth", "cboExpYear", "txtAmount", "chkTaxExempt",
                                           "txtTaxAmount", "chkVoiceAuth", "txtBillToStreet",
                                           "txtBillToCity", "cboBillToState", "txtBillToZip",
                                           "txtEMail", "txtDescription", "txtInvoiceNumber",
                                           "cmdSubmit", "cmdCancel"),
                         [](const auto& row) { return std::string(row.param); });

struct Reader {
    const char* name;
    std::string sends;
};

void PrintTo(const Reader& reader, std::ostream* out) {
    *out << reader.name;
}

class FieldsReader : public FieldsSwipe, public ::testing::WithParamInterface<Reader> {};

TEST_P(FieldsReader, IsUnderstood) {
    goTo("txtDescription");

    type(GetParam().sends);
    pause();

    expectTaken();
    expectNothingElse();
}

TEST_P(FieldsReader, IsUnderstoodTwiceInARow) {
    goTo("txtEMail");

    type(GetParam().sends + GetParam().sends);
    pause();

    expectTaken();
    expectNothingElse();
    EXPECT_EQ(beeps(), 2);
}

INSTANTIATE_TEST_SUITE_P(
    That, FieldsReader,
    ::testing::Values(
        Reader{"SendsTrackOneOnly", kCard}, Reader{"ClosesWithEnter", std::string(kCard) + "\r"},
        Reader{"ClosesEachTrackWithEnter",
               std::string(kCard) + "\r" + kTrack2 + "\r" + kTrack3 + "\r"},
        Reader{"SendsTheLrc", std::string(kCard) + "5" + kTrack2 + "7" + kTrack3 + "Q\r"},
        Reader{"SendsASemicolonAsLrc", std::string(kCard) + ";" + kTrack2 + ";\r"},
        Reader{"SendsAPlusAsLrc", std::string(kCard) + "+" + kTrack2 + "+" + kTrack3 + "\r"},
        Reader{"SendsAPercentSignAsLrc", std::string(kCard) + "%" + kTrack2 + "%\r"},
        Reader{"SendsABlankAsLrc", std::string(kCard) + " \r" + kTrack2 + " \r"},
        Reader{"SendsEmptyTracks", std::string(kCard) + ";?+?\r"},
        Reader{"SendsReadErrors", std::string(kCard) + ";E?+E?\r"},
        Reader{"LosesTheEndOfTrackTwo", std::string(kCard) + ";41111111"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(FieldsSwipe, PressesNoButtonWithTheBlanksOfAName) {
    for (const char* button : {"cmdSubmit", "cmdCancel"}) {
        goTo(button);
        type("%B4111111111111111^A B C^2712101? ");
        pause();
        EXPECT_TRUE(till.operations().empty());
        EXPECT_EQ(till.boxes(), std::vector<Message>());
        ASSERT_TRUE(till.isOpen());
        EXPECT_EQ(till.text("txtCardName"), "A B C");
    }
}

TEST_F(FieldsSwipe, StartsANewEntry) {
    till.fillCharge();
    goTo("txtDescription");

    type(kCard);

    expectTaken();
    expectNothingElse();
}

TEST_F(FieldsSwipe, StartsANewEntryAfterAnApproval) {
    till.approveCharge();

    type(kCard);

    expectTaken();
    EXPECT_FALSE(till.program().TransactionApproved());
    EXPECT_EQ(till.button("cmdCancel").caption(), "Cancel");
}

TEST_F(FieldsSwipe, IsSentAsTrackOneInPlaceOfACardNumber) {
    goTo("txtCardName");
    type(kCard);
    pause();
    till.enter("txtAmount", "$25.00");
    for (const char* box : {"txtBillToStreet", "txtBillToCity", "txtBillToZip"}) {
        till.enter(box, "1");
    }
    till.enterState("IL");

    till.submit();

    EXPECT_EQ(till.operations(), (std::vector<std::string>{"AuthorizeAndCapture"}));
    EXPECT_EQ(till.held("Track1"), kCard);
    EXPECT_EQ(till.held("CardNumber"), "");
}

TEST_F(FieldsSwipe, ClosesTheCardCodeWhileItIsHeld) {
    goTo("txtCardCode");
    type("123");

    type(kCard);

    EXPECT_FALSE(till.box("txtCardCode").enabled());
    EXPECT_TRUE(till.box("txtCardCode").locked());
    EXPECT_EQ(till.text("txtCardCode"), "");
    for (const char* name : {"txtCardNumber", "txtCardName"}) {
        EXPECT_TRUE(till.box(name).enabled()) << name;
    }
    EXPECT_TRUE(till.list("cboExpMonth").enabled());
    EXPECT_TRUE(till.list("cboExpYear").enabled());
}

TEST_F(FieldsSwipe, KeepsTheCardCodeClosedWhenTheTypeIsLaidOutAgain) {
    goTo("txtCardName");
    type(kCard);
    pause();

    till.choose(1);
    till.choose(0);
    EXPECT_FALSE(till.box("txtCardCode").enabled());

    till.program().EnableForm(false);
    till.program().EnableForm(true);
    EXPECT_FALSE(till.box("txtCardCode").enabled());

    till.program().ClearText();
    EXPECT_TRUE(till.box("txtCardCode").enabled());
}

TEST_F(FieldsSwipe, LeavesTheCardCodeToTheTypeWhenItIsGone) {
    goTo("txtCardName");
    type(kCard);
    till.choose(1);

    till.program().ClearText();

    EXPECT_FALSE(till.box("txtCardCode").enabled()) << "a refund has no card code";
}

TEST_F(FieldsSwipe, IsReplacedByEditingTheCardNumber) {
    goTo("txtDescription");
    type(kCard);
    pause();
    goTo("txtCardNumber");
    till.box("txtCardNumber").select(16, 0);

    type("\b");

    EXPECT_EQ(till.text("txtCardNumber"), "411111111111111");
    EXPECT_EQ(till.text("txtMagStripe"), "");
    EXPECT_TRUE(till.box("txtCardCode").enabled());
    EXPECT_EQ(till.button("cmdCancel").caption(), "Cancel");
}

TEST_F(FieldsSwipe, IsSentAsAKeyedCardOnceTheCardNumberIsEdited) {
    goTo("txtCardNumber");
    type(kCard);
    pause();
    for (const char* box : {"txtBillToStreet", "txtBillToCity", "txtBillToZip"}) {
        till.enter(box, "1");
    }
    till.enterState("IL");
    till.enter("txtAmount", "$25.00");
    goTo("txtCardNumber");
    type("4012888888881881");
    till.enter("txtCardCode", "123");

    till.submit();

    EXPECT_EQ(till.operations(), (std::vector<std::string>{"AuthorizeAndCapture"}));
    EXPECT_EQ(till.held("Track1"), "");
    EXPECT_EQ(till.held("CardNumber"), "4012888888881881");
}

TEST_F(FieldsSwipe, TakesANameWithoutASlashAsItIs) {
    goTo("txtDescription");

    type("%B4111111111111111^JOHN SMITH^2712101000000?");

    EXPECT_EQ(till.text("txtCardName"), "JOHN SMITH");
}

TEST_F(FieldsSwipe, ClearsTheYearWhenTheListDoesNotOfferTheCards) {
    till.enterExpiry(3, 2030);
    goTo("txtDescription");

    type("%B4111111111111111^SMITH/JOHN^2501101000000?");

    EXPECT_EQ(till.list("cboExpMonth").listIndex(), 0);
    EXPECT_EQ(till.list("cboExpYear").listIndex(), -1) << "the year of an earlier card is gone";
}

TEST_F(FieldsSwipe, TellsTheChargeComponentNothingAboutTheExpiryYet) {
    goTo("txtDescription");
    till.desktop.record.forget();

    type(kCard);

    EXPECT_EQ(till.chargeCalls(), std::vector<std::string>());
}

TEST_F(FieldsSwipe, ThatBrokeOffIsForgottenAfterAWhile) {
    goTo("txtDescription");
    type("%B4111111111111111^SMI");
    EXPECT_EQ(till.text("txtMagStripe"), "");

    till.desktop.robot->letTimePass(2200);
    goTo("txtDescription");
    type("as before");

    EXPECT_EQ(till.text("txtDescription"), "as before");
    EXPECT_EQ(till.text("txtKbBuffer"), "");
    EXPECT_EQ(beeps(), 0);
}

TEST_F(FieldsSwipe, IsTakenAtOnceAfterOneThatBrokeOff) {
    goTo("txtDescription");

    type("%B4111111111111111^SMI");
    type(kCard);

    expectTaken();
    expectNothingElse();
}

TEST_F(FieldsSwipe, LetsTheAmountBeTypedAfterwards) {
    for (const char* place : {"txtAmount", "txtTaxAmount", "txtDescription"}) {
        goTo(place);
        type(std::string(kCard) + "\r");
        pause();

        type("12.50");
        EXPECT_EQ(till.text("txtAmount"), "12.50") << place;
        till.desktop.robot->tab();

        EXPECT_EQ(till.text("txtAmount"), "$12.50") << place;
    }
}

TEST_F(FieldsSwipe, ThatBrokeOffLeavesTheAmountBoxUsable) {
    goTo("txtAmount");
    type("9.99%B4111");
    till.desktop.robot->letTimePass(2200);

    type("12.50");

    EXPECT_EQ(till.text("txtAmount"), "12.50");
}

TEST_F(FieldsSwipe, WaitsForTheRestOfATrackTwoThatStopsInTheMiddle) {
    goTo("txtDescription");

    type(std::string(kCard) + "\r;4111111");
    pause();
    type("111111111=27121010000000000?\r");
    pause();

    expectTaken();
    expectNothingElse();
    type("12.50");
    EXPECT_EQ(till.text("txtAmount"), "12.50");
}

TEST_F(FieldsSwipe, WaitsForTheRestOfATrackTwoThatComesAlone) {
    goTo("txtDescription");

    type(";41111111");
    pause();
    type("11111111=27121010000000000?\r");
    pause();

    EXPECT_EQ(till.text("txtDescription"), "");
    type("x");
    EXPECT_EQ(till.text("txtDescription"), "x");
}

TEST_F(FieldsSwipe, ShowsTheTipOnlyWhenTheReaderHasEnded) {
    till.set("Options|ShowRefundVoidWarning", true);
    goTo("txtDescription");

    type(std::string(kCard) + "\r" + kTrack2 + "\r");
    EXPECT_EQ(till.boxes(), std::vector<Message>());
    pause();

    EXPECT_EQ(till.boxes(),
              (std::vector<Message>{information("Tip", "Enter the amount to be charged.")}));
    expectTaken();
}

TEST_F(FieldsSwipe, IsTakenForARefundAndAVoidToo) {
    for (const int type : {1, 2}) {
        till.choose(type);
        goTo("txtTransactionNumber");

        this->type(kCard);

        expectTaken();
        EXPECT_FALSE(till.box("txtCardCode").enabled());
    }
}

TEST_F(FieldsSwipe, TrackTwoIsForgottenAfterTwoSeconds) {
    goTo("txtDescription");
    type(kTrack2);
    EXPECT_EQ(till.text("txtKbBuffer"), kTrack2);

    till.desktop.robot->letTimePass(2300);

    EXPECT_EQ(till.text("txtKbBuffer"), "");
}

} // namespace
} // namespace tollvane::test
