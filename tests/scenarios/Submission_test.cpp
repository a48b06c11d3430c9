// One press of submit: the operation for the kind of transaction, and the outcome.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

class Submission : public OpenTillTest {};

TEST_F(Submission, ChargeIsAuthorizedAndApproved) {
    till.fillCharge();

    till.submit();

    EXPECT_EQ(till.operations(), (std::vector<std::string>{"AuthorizeAndCapture"}));
    EXPECT_EQ(till.boxes(), (std::vector<Message>{
                                information("Approved", "The authorization was successful.\r\n\r\n"
                                                        "Aproval code:\tA1B2C3\r\n"
                                                        "Transaction ID:\t7001\r\n"
                                                        "This transaction has been approved.")}));
}

TEST_F(Submission, ChargeByTelephoneIsCapturedWithItsCode) {
    till.fillCharge();
    till.press("chkVoiceAuth");
    till.enter("txtAuthNum", "V12345");

    till.submit();

    EXPECT_EQ(till.operations(), (std::vector<std::string>{"CaptureVoiceAuth"}));
    EXPECT_EQ(till.lastOperation().argument, "V12345");
    EXPECT_EQ(till.boxes().at(0).text, "The voice authorization capture was successful.\r\n\r\n"
                                       "Aproval code:\tA1B2C3\r\n"
                                       "Transaction ID:\t7001\r\n"
                                       "This transaction has been approved.");
}

TEST_F(Submission, RefundCreditsTheEarlierTransaction) {
    till.fillRefund();

    till.submit();

    EXPECT_EQ(till.operations(), (std::vector<std::string>{"Credit"}));
    EXPECT_EQ(till.lastOperation().argument, "7001");
    EXPECT_EQ(till.boxes().at(0).text, "The refund was successful.\r\n\r\n"
                                       "Aproval code:\tA1B2C3\r\n"
                                       "Transaction ID:\t7001\r\n"
                                       "This transaction has been approved.");
}

TEST_F(Submission, VoidVoidsTheEarlierTransaction) {
    till.fillVoid();

    till.submit();

    EXPECT_EQ(till.operations(), (std::vector<std::string>{"Void"}));
    EXPECT_EQ(till.lastOperation().argument, "7001");
    EXPECT_EQ(till.boxes().at(0).text, "The void was successful.\r\n\r\n"
                                       "Aproval code:\tA1B2C3\r\n"
                                       "Transaction ID:\t7001\r\n"
                                       "This transaction has been approved.");
}

TEST_F(Submission, TickedTelephoneBoxDoesNotTurnARefundIntoACapture) {
    till.press("chkVoiceAuth");
    till.fillRefund();

    till.submit();

    EXPECT_EQ(till.operations(), (std::vector<std::string>{"Credit"}));
}

TEST_F(Submission, UnknownTypeNeverReachesTheGateway) {
    for (const int type : {3, -1}) {
        till.fillCharge();
        till.program().SetTransType(type);

        till.submit();

        EXPECT_EQ(till.operations(), std::vector<std::string>()) << type;
        EXPECT_FALSE(till.program().TransactionApproved());
        EXPECT_EQ(till.boxes().size(), 1U);
        EXPECT_TRUE(till.desktop.hostData.posted.empty());
    }
}

TEST_F(Submission, ApprovalFinishesTheTransaction) {
    till.fillCharge();

    till.submit();

    EXPECT_TRUE(till.program().TransactionApproved());
    EXPECT_EQ(till.button("cmdCancel").caption(), "Finished");
    EXPECT_EQ(till.focus(), "cmdCancel");
    EXPECT_EQ(till.text("txtAuthNum"), "A1B2C3");
    EXPECT_EQ(till.text("txtTransactionNumber"), "7001");
    till.expectUsable();
}

TEST_F(Submission, ApprovalWithEmptyCodesStillCountsAndClearsBothBoxes) {
    till.fillCharge();
    till.enter("txtAuthNum", "OLD");
    till.enter("txtTransactionNumber", "OLD");
    till.desktop.charge.answer({.responseCode = 0,
                                .reasonCode = 0,
                                .reasonText = "",
                                .approvalCode = "",
                                .transactionId = ""});

    till.submit();

    EXPECT_TRUE(till.program().TransactionApproved());
    EXPECT_EQ(till.text("txtAuthNum"), "");
    EXPECT_EQ(till.text("txtTransactionNumber"), "");
    EXPECT_EQ(till.boxes(), (std::vector<Message>{information(
                                "Approved", "The authorization was successful.\r\n\r\n")}));
}

struct ApprovalText {
    const char* what;
    const char* code;
    const char* id;
    const char* reason;
    const char* detail;
};

void PrintTo(const ApprovalText& row, std::ostream* out) {
    *out << row.what;
}

class ApprovalMessage : public OpenTillTest, public ::testing::WithParamInterface<ApprovalText> {};

TEST_P(ApprovalMessage, ShowsWhatTheGatewayGave) {
    till.fillCharge();
    till.desktop.charge.answer({.reasonText = GetParam().reason,
                                .approvalCode = GetParam().code,
                                .transactionId = GetParam().id});

    till.submit();

    EXPECT_EQ(till.boxes().at(0).text,
              "The authorization was successful.\r\n\r\n" + std::string(GetParam().detail));
}

INSTANTIATE_TEST_SUITE_P(
    With, ApprovalMessage,
    ::testing::Values(ApprovalText{"CodeOnly", "Z9", "", "", "Aproval code:\tZ9\r\n"},
                      ApprovalText{"IdOnly", "", "55", "", "Transaction ID:\t55\r\n"},
                      ApprovalText{"ReasonOnly", "", "", "Fine.", "Fine."},
                      ApprovalText{"Everything", "Z9", "55", "Fine.",
                                   "Aproval code:\tZ9\r\nTransaction ID:\t55\r\nFine."}),
    [](const auto& row) { return std::string(row.param.what); });

TEST_F(Submission, OperationsResultDecidesAndNotTheCodes) {
    till.fillCharge();
    till.desktop.charge.answer({.approved = true, .responseCode = 2, .reasonCode = 27});
    till.submit();
    EXPECT_TRUE(till.program().TransactionApproved());
    till.boxes();

    till.choose(1);
    till.fillRefund();
    till.desktop.charge.answer({.approved = false, .responseCode = 1, .reasonCode = 1});
    till.submit();
    EXPECT_FALSE(till.program().TransactionApproved());
    EXPECT_EQ(till.boxes().at(0).title, "Authorization Failed");
}

class Decline : public OpenTillTest {
protected:
    Message decline(const ChargeAnswer& answer) {
        till.desktop.charge.answer(answer);
        till.submit();
        return till.boxes().at(0);
    }
    static Message failed(const std::string& text, long topic) {
        return {.text = text,
                .title = "Authorization Failed",
                .icon = MessageIcon::information,
                .buttons = MessageButtons::ok,
                .defaultButton = 1,
                .helpFile = "zendacard.hlp",
                .helpTopic = topic};
    }
};

TEST_F(Decline, ShowsAllCodesAndTheReasonWithItsHelpTopic) {
    till.fillCharge();
    ChargeAnswer answer = declined(2, 27, "The address does not match.");
    answer.subCode = 4;

    EXPECT_EQ(decline(answer), failed("The authorization failed.\r\n\r\n"
                                      "Response code:\t2\r\n"
                                      "Reason code:\t27\r\n"
                                      "Reason sub-code:\t4\r\n"
                                      "The address does not match.",
                                      227));
}

TEST_F(Decline, WithAllCodesZeroAndNoReasonShowsOnlyThatItFailed) {
    till.fillCharge();
    EXPECT_EQ(decline(declined(0, 0, "")), failed("The authorization failed.\r\n\r\n", 0));
}

TEST_F(Decline, ShowsTheSmallestCodes) {
    till.fillCharge();
    ChargeAnswer answer = declined(1, 1, "Odd.");
    answer.subCode = 1;
    EXPECT_EQ(decline(answer).text, "The authorization failed.\r\n\r\nResponse code:\t1\r\n"
                                    "Reason code:\t1\r\nReason sub-code:\t1\r\nOdd.");
}

TEST_F(Decline, ShowsNoNegativeCodes) {
    till.fillCharge();
    ChargeAnswer answer = declined(-1, 5, "Odd.");
    answer.subCode = -3;
    EXPECT_EQ(decline(answer).text, "The authorization failed.\r\n\r\nReason code:\t5\r\nOdd.");
}

TEST_F(Decline, OfATelephoneChargeNamesTheCapture) {
    till.fillCharge();
    till.press("chkVoiceAuth");
    till.enter("txtAuthNum", "V12345");
    EXPECT_EQ(decline(declined(3, 11, "Twice.")),
              failed("The voice authorization capture failed.\r\n\r\n"
                     "Response code:\t3\r\nReason code:\t11\r\nTwice.",
                     311));
}

TEST_F(Decline, OfARefundNamesTheRefund) {
    till.fillRefund();
    EXPECT_EQ(decline(declined(3, 54, "Too much.")),
              failed("The refund failed.\r\n\r\n"
                     "Response code:\t3\r\nReason code:\t54\r\nToo much.",
                     354));
}

TEST_F(Decline, OfAVoidNamesTheVoid) {
    till.fillVoid();
    EXPECT_EQ(decline(declined(3, 16, "Unknown.")),
              failed("The void failed.\r\n\r\n"
                     "Response code:\t3\r\nReason code:\t16\r\nUnknown.",
                     316));
}

TEST_F(Decline, KeepsTheEntrySoThatItCanBeCorrectedAndSubmittedAgain) {
    till.fillCharge();
    decline(declined(2, 2, "Declined."));

    EXPECT_FALSE(till.program().TransactionApproved());
    EXPECT_EQ(till.button("cmdCancel").caption(), "Cancel");
    EXPECT_EQ(till.text("txtCardNumber"), "4111111111111111");
    EXPECT_EQ(till.text("txtCardName"), "Mary Ann Smith");
    EXPECT_EQ(till.text("txtAmount"), "$25.00");
    EXPECT_EQ(till.text("txtAuthNum"), "");
    till.expectUsable();

    till.submit();
    EXPECT_TRUE(till.program().TransactionApproved());
    EXPECT_EQ(till.operations().size(), 2U);
}

TEST_F(Decline, PostsNoPayment) {
    till.fillCharge();
    decline(declined(2, 2, "Declined."));
    EXPECT_TRUE(till.desktop.hostData.posted.empty());
}

TEST_F(Decline, ReturnsTheFocusToSubmit) {
    till.fillCharge();
    decline(declined(2, 2, "Declined."));
    EXPECT_EQ(till.focus(), "cmdSubmit");
}

class SecondSubmission : public OpenTillTest {};

TEST_F(SecondSubmission, NeverCallsTheGatewayAgain) {
    till.approveCharge();

    till.submit();

    EXPECT_EQ(till.operations().size(), 1U);
    EXPECT_TRUE(till.chargeCalls().empty()) << "not even the fields were cleared";
    EXPECT_EQ(till.boxes(),
              (std::vector<Message>{information("Transaction Already Authorized",
                                                "This transaction has already been authorized. "
                                                "Please enter a new transaction to continue.")}));
    till.expectUsable();
    EXPECT_TRUE(till.program().TransactionApproved());
}

TEST_F(SecondSubmission, WorksAfterANewEntryWasBegun) {
    till.approveCharge();
    till.choose(1);
    till.choose(0);
    till.fillCharge();

    till.submit();

    EXPECT_EQ(till.operations().size(), 2U);
    EXPECT_EQ(till.boxes().at(0).title, "Approved");
}

class WhileTheGatewayWorks : public OpenTillTest {};

TEST_F(WhileTheGatewayWorks, TheFormIsDisabledUnderTheHourglass) {
    till.fillCharge();
    bool asked = false;
    till.desktop.charge.duringOperation = [&](const ChargeOperation&) {
        asked = true;
        EXPECT_EQ(till.form().mousePointer(), MousePointer::hourglass);
        for (Control* control : till.form().controls()) {
            EXPECT_FALSE(control->enabled()) << control->name();
        }
    };

    till.submit();

    EXPECT_TRUE(asked);
    till.expectUsable();
}

TEST_F(WhileTheGatewayWorks, TheHourglassStaysUntilTheOperatorHasReadTheOutcome) {
    till.fillCharge();
    MousePointer pointer = MousePointer::standard;
    till.desktop.boxes.whileOpen = [&](const Message&) { pointer = till.form().mousePointer(); };

    till.submit();

    EXPECT_EQ(pointer, MousePointer::hourglass);
    EXPECT_EQ(till.form().mousePointer(), MousePointer::standard);
}

TEST_F(WhileTheGatewayWorks, AfterwardsTheFieldsOfTheKindAreUsableAgain) {
    till.fillRefund();

    till.submit();

    EXPECT_TRUE(till.kind(1).selected());
    EXPECT_TRUE(till.box("txtCardNumber").enabled());
    EXPECT_TRUE(till.box("txtTransactionNumber").enabled());
    EXPECT_FALSE(till.box("txtCardName").enabled());
    EXPECT_FALSE(till.list("cboExpMonth").enabled());
}

class EnablingTheForm : public OpenTillTest {};

TEST_F(EnablingTheForm, NeverClearsAnApprovedEntry) {
    till.approveCharge();

    till.program().EnableForm(false);
    till.program().EnableForm(true);

    EXPECT_TRUE(till.program().TransactionApproved());
    EXPECT_EQ(till.text("txtCardName"), "Mary Ann Smith");
    EXPECT_EQ(till.text("txtAuthNum"), "A1B2C3");
    EXPECT_TRUE(till.button("cmdCancel").enabled());
    EXPECT_EQ(till.button("cmdCancel").caption(), "Finished");
}

TEST_F(EnablingTheForm, SelectsTheButtonOfTheTypeWithoutCountingAsAClick) {
    till.approveCharge();
    till.program().SetTransType(1); // the type was set from code; its button is not selected

    till.program().EnableForm(true);

    EXPECT_TRUE(till.kind(1).selected());
    EXPECT_TRUE(till.program().TransactionApproved());
    EXPECT_EQ(till.text("txtAuthNum"), "A1B2C3");
}

TEST_F(EnablingTheForm, RestoresTheFieldStatesOfTheType) {
    till.choose(2);

    till.program().EnableForm(false);
    till.program().EnableForm(true);

    EXPECT_FALSE(till.box("txtCardNumber").enabled());
    EXPECT_FALSE(till.box("txtBillToStreet").enabled());
    EXPECT_TRUE(till.box("txtTransactionNumber").enabled());
    EXPECT_TRUE(till.box("txtAmount").enabled());
}

TEST_F(EnablingTheForm, StatusTextAppearsInItsPanel) {
    till.program().ShowStatus("Dialling ...");
    EXPECT_EQ(till.status(), "Dialling ...");
}

class CaptureWithoutACode : public OpenTillTest {};

TEST_F(CaptureWithoutACode, AsksTheGatewayAllTheSameOnceTheValidationHasPassed) {
    till.fillCharge();
    till.press("chkVoiceAuth");
    till.enter("txtAuthNum", "V12345");
    // The last value that the validation hands over: by then the code has been checked.
    till.desktop.charge.script().property("CustomerEmail", nullptr,
                                          [this](const Variant&) { till.enter("txtAuthNum", ""); });

    till.submit();

    EXPECT_EQ(till.operations(), (std::vector<std::string>{"CaptureVoiceAuth"}));
    EXPECT_EQ(till.lastOperation().argument, "");
}

TEST_F(CaptureWithoutACode, IsPreventedByTheValidation) {
    till.fillCharge();
    till.press("chkVoiceAuth");
    till.enter("txtAuthNum", "");

    till.submit();

    EXPECT_TRUE(till.operations().empty());
    EXPECT_EQ(till.boxes().at(0).text, "The authorization number is invalid.\r\n\r\n"
                                       "Enter a valid authorization number to continue.");
}

} // namespace
} // namespace tollvane::test
