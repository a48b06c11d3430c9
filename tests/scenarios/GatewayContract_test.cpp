// What the program expects of the charge component, and how it takes a component that does not do
// as expected.

#include "gateway/CardNumberChecker.h"
#include "gateway/ChargeComponent.h"
#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

class GatewayContract : public TillTest {};

TEST_F(GatewayContract, FieldOfLengthZeroMakesItsBoxAcceptNoCharacter) {
    till.desktop.charge.setMaximumLength("x_description", 0);
    till.open();
    till.desktop.robot->click(till.form(), "txtDescription");

    till.desktop.robot->typeText("Two chairs");

    EXPECT_EQ(till.text("txtDescription"), "");
    EXPECT_EQ(till.box("txtDescription").maxLength(), 0);
}

TEST_F(GatewayContract, FieldLengthIsTheMostThatCanBeTyped) {
    till.desktop.charge.setMaximumLength("x_description", 5);
    till.open();
    till.desktop.robot->click(till.form(), "txtDescription");

    till.desktop.robot->typeText("chairs");

    EXPECT_EQ(till.text("txtDescription").size(), 5U);
}

TEST_F(GatewayContract, ExactlyOneOperationRunsForOneSubmission) {
    till.open();
    for (const int type : {0, 1, 2}) {
        till.choose(type);
        const std::size_t before = till.operations().size();
        switch (type) {
        case 0: till.fillCharge(); break;
        case 1: till.fillRefund(); break;
        default: till.fillVoid(); break;
        }
        till.submit();
        EXPECT_EQ(till.operations().size(), before + 1) << type;
        till.boxes();
    }
}

TEST_F(GatewayContract, ComponentWithoutAFieldIsReportedAndTheFormStillOpens) {
    till.desktop.record.failNext("charge.TransactionField", Error(5, "charge", "No such field."));

    till.start();

    EXPECT_EQ(till.boxes(), (std::vector<Message>{information(
                                "", "There was an error preparing the entry fields.\r\n\r\n"
                                    "Error: 5, No such field.")}));
    EXPECT_TRUE(till.isOpen());
}

struct OperationAnswer {
    const char* what;
    Variant answer;
    bool approved;
};

void PrintTo(const OperationAnswer& row, std::ostream* out) {
    *out << row.what;
}

class OpenGatewayTest : public OpenTillTest {
protected:
    void submitWithAnswer(const Variant& answer) {
        till.fillCharge();
        till.desktop.charge.script().method(
            "AuthorizeAndCapture", [answer](std::vector<Argument>&) -> Variant { return answer; });
        till.submit();
    }
};

class OperationResult : public OpenGatewayTest,
                        public ::testing::WithParamInterface<OperationAnswer> {};

// True is an approval, anything else a failure; a component may give its truth as a number.
TEST_P(OperationResult, DecidesAboutTheApproval) {
    submitWithAnswer(GetParam().answer);

    EXPECT_EQ(till.program().TransactionApproved(), GetParam().approved);
    EXPECT_EQ(till.boxes().at(0).title, GetParam().approved ? "Approved" : "Authorization Failed");
}

INSTANTIATE_TEST_SUITE_P(
    Of, OperationResult,
    ::testing::Values(OperationAnswer{"True", true, true}, OperationAnswer{"False", false, false},
                      OperationAnswer{"Empty", std::monostate(), false},
                      OperationAnswer{"MinusOne", std::int32_t{-1}, true},
                      OperationAnswer{"Zero", std::int32_t{0}, false},
                      OperationAnswer{"Fraction", 0.0, false},
                      OperationAnswer{"NoAmount", Money(), false},
                      OperationAnswer{"FalseInWords", std::string("False"), false}),
    [](const auto& row) { return std::string(row.param.what); });

class StrangeOperationResult : public OpenGatewayTest,
                               public ::testing::WithParamInterface<OperationAnswer> {};

// What is neither yes nor no says nothing about what the processor did.
TEST_P(StrangeOperationResult, IsAnErrorOfTheSubmissionAndStaysInSight) {
    submitWithAnswer(GetParam().answer);

    EXPECT_EQ(till.boxes(), (std::vector<Message>{
                                information("", "There was an error getting an approval.\r\n\r\n"
                                                "Error: 13, Type mismatch")}));
    EXPECT_FALSE(till.program().TransactionApproved());
    EXPECT_TRUE(till.status().starts_with("See the transaction log: authorization of "))
        << till.status();
    till.expectUsable();
}

INSTANTIATE_TEST_SUITE_P(
    Of, StrangeOperationResult,
    ::testing::Values(OperationAnswer{"Nothing", ObjectRef(), false},
                      OperationAnswer{"Date", DateTime{.year = 2026, .month = 2, .day = 3}, false},
                      OperationAnswer{"Perhaps", std::string("perhaps"), false}),
    [](const auto& row) { return std::string(row.param.what); });

TEST_F(GatewayContract, OperationThatRaisesIsReportedAndTheFormIsUsable) {
    till.open();
    till.fillCharge();
    till.desktop.charge.failOperation(Error(-2147012889, "charge", "The server was not found."));

    till.submit();

    EXPECT_EQ(till.boxes(), (std::vector<Message>{
                                information("", "There was an error getting an approval.\r\n\r\n"
                                                "Error: -2147012889, The server was not found.")}));
    EXPECT_FALSE(till.program().TransactionApproved());
    EXPECT_EQ(till.text("txtCardNumber"), "4111111111111111");
    EXPECT_EQ(till.focus(), "cmdSubmit");
    till.expectUsable();
}

// The typed view of the component, member by member.

class ChargeView : public ::testing::Test {
protected:
    std::vector<std::string> calls() const { return desktop.record.texts(); }

    TestDesktop desktop;
    ChargeComponent charge{desktop.charge.object(), desktop.locale};
};

TEST_F(ChargeView, WritesEveryPropertyByItsName) {
    charge.SetAmount(Money::fromScaled(123'456));
    charge.SetCardNumber(SecretText("4111111111111111"));
    charge.SetTrack1(SecretText("%B4111?"));
    charge.SetFirstName("Mary");
    charge.SetLastName("Smith");
    charge.SetExpirationDate("3-2027");
    charge.SetExpirationDate(DateTime{.year = 2027, .month = 3, .day = 1});
    charge.SetTax("1.50");
    charge.SetTaxExempt(true);
    charge.SetStreetAddress("1 Oak Street");
    charge.SetCity("Springfield");
    charge.SetState("IL");
    charge.SetZipCode("62701");
    charge.SetInvoiceNumber("INV-1");
    charge.SetDescription("Two chairs");
    charge.SetCustomerEmail("mary@example.org");

    EXPECT_EQ(calls(), (std::vector<std::string>{
                           "charge.Amount = 12.3456", "charge.CardNumber = secret(16)",
                           "charge.Track1 = secret(7)", "charge.FirstName = \"Mary\"",
                           "charge.LastName = \"Smith\"", "charge.ExpirationDate = \"3-2027\"",
                           "charge.ExpirationDate = 2027-3-1", "charge.Tax = \"1.50\"",
                           "charge.TaxExempt = true", "charge.StreetAddress = \"1 Oak Street\"",
                           "charge.City = \"Springfield\"", "charge.State = \"IL\"",
                           "charge.ZipCode = \"62701\"", "charge.InvoiceNumber = \"INV-1\"",
                           "charge.Description = \"Two chairs\"",
                           "charge.CustomerEmail = \"mary@example.org\""}));
}

TEST_F(ChargeView, ReadsEveryPropertyByItsName) {
    charge.Amount();
    charge.CardNumber();
    charge.FirstName();
    charge.LastName();
    charge.ExpirationDate();
    charge.Tax();
    charge.StreetAddress();
    charge.City();
    charge.State();
    charge.ZipCode();
    charge.InvoiceNumber();
    charge.ResponseCode();
    charge.ResponseReasonCode();
    charge.ResponseSubCode();
    charge.ResponseReasonText();
    charge.ApprovalCode();
    charge.TransactionID();
    charge.TestMode();
    charge.LogFilePath();
    charge.LogFileName();

    EXPECT_EQ(calls(), (std::vector<std::string>{"charge.Amount",
                                                 "charge.CardNumber",
                                                 "charge.FirstName",
                                                 "charge.LastName",
                                                 "charge.ExpirationDate",
                                                 "charge.Tax",
                                                 "charge.StreetAddress",
                                                 "charge.City",
                                                 "charge.State",
                                                 "charge.ZipCode",
                                                 "charge.InvoiceNumber",
                                                 "charge.ResponseCode",
                                                 "charge.ResponseReasonCode",
                                                 "charge.ResponseSubCode",
                                                 "charge.ResponseReasonText",
                                                 "charge.ApprovalCode",
                                                 "charge.TransactionID",
                                                 "charge.TestMode",
                                                 "charge.LogFilePath",
                                                 "charge.LogFileName"}));
}

TEST_F(ChargeView, CallsEveryOperationWithItsArguments) {
    charge.ClearFields();
    charge.AuthorizeAndCapture();
    charge.CaptureVoiceAuth("V12345");
    charge.Credit("7001");
    charge.Void("7002");
    charge.ConfigureGateway();
    charge.ConfigureSettings();
    charge.LogLoggedInUser("Ada Byron");
    charge.Free();

    EXPECT_EQ(calls(), (std::vector<std::string>{
                           "charge.ClearFields()", "charge.AuthorizeAndCapture()",
                           "charge.CaptureVoiceAuth(\"V12345\")", "charge.Credit(\"7001\")",
                           "charge.Void(\"7002\")", "charge.ConfigureGateway()",
                           "charge.ConfigureSettings()", "charge.LogLoggedInUser(&\"Ada Byron\")",
                           "charge.Free()"}));
}

TEST_F(ChargeView, ReachesAFieldsValueAndLength) {
    TransactionField field = charge.TransactionField("x_po_num");
    field.setValue(std::string("PO-1"));

    EXPECT_EQ(field.value(), "PO-1");
    EXPECT_EQ(field.maximumLength(), 25);
    EXPECT_EQ(desktop.charge.field("x_po_num"), "PO-1");
}

TEST_F(ChargeView, UnderstandsAmountsThatArriveAsText) {
    desktop.charge.script().setValue("Amount", std::string("$1,234.50"));
    EXPECT_EQ(charge.Amount(), Money::fromScaled(12'345'000));

    desktop.locale.use(localeid::germany);
    desktop.charge.script().setValue("Amount", std::string("1.234,50 \x80"));
    EXPECT_EQ(charge.Amount(), Money::fromScaled(12'345'000));
}

TEST_F(ChargeView, RaisesWhatTheComponentReports) {
    desktop.record.failNext("charge.City", Error(1234, "charge", "Not today."));

    try {
        charge.City();
        FAIL() << "nothing was raised";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 1234);
        EXPECT_EQ(error.source(), "charge");
        EXPECT_EQ(error.description(), "Not today.");
    }
}

TEST_F(ChargeView, HoldsOneReferenceAndReleasesIt) {
    const ObjectRef object = desktop.charge.object();
    const long before = object.use_count();
    {
        const ChargeComponent second(desktop.charge.object(), desktop.locale);
        EXPECT_EQ(object.use_count(), before + 1);
    }
    EXPECT_EQ(object.use_count(), before);
}

} // namespace
} // namespace tollvane::test
