// The life of the transaction form: what it looks like and where it stands when it opens.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

class OpeningTheForm : public TillTest {};

TEST_F(OpeningTheForm, SelectsTheCharge) {
    till.open();

    EXPECT_TRUE(till.kind(0).selected());
    EXPECT_EQ(till.program().TransType(), 0);
    EXPECT_EQ(till.kind(0).caption(), "Charge");
    EXPECT_EQ(till.kind(1).caption(), "Refund");
    EXPECT_EQ(till.kind(2).caption(), "Void");
}

struct Length {
    const char* box;
    const char* field;
    int length;
};

void PrintTo(const Length& row, std::ostream* out) {
    *out << row.box;
}

class MaximumLength : public TillTest, public ::testing::WithParamInterface<Length> {};

TEST_P(MaximumLength, IsWhatTheGatewayAccepts) {
    till.desktop.charge.setMaximumLength(GetParam().field, GetParam().length);

    till.open();

    EXPECT_EQ(till.box(GetParam().box).maxLength(), GetParam().length);
}

INSTANTIATE_TEST_SUITE_P(
    Of, MaximumLength,
    ::testing::Values(
        Length{"txtCardNumber", "x_card_num", 19}, Length{"txtCardCode", "x_card_code", 5},
        Length{"txtAmount", "x_amount", 11}, Length{"txtZipCode", "x_zip", 9},
        Length{"txtBillToZip", "x_zip", 8}, Length{"txtTaxAmount", "x_tax", 7},
        Length{"txtAuthNum", "x_auth_code", 8}, Length{"txtTransactionNumber", "x_trans_id", 12},
        Length{"txtBillToStreet", "x_address", 31}, Length{"txtBillToCity", "x_city", 17},
        Length{"txtEMail", "x_email", 63}, Length{"txtDescription", "x_description", 41},
        Length{"txtInvoiceNumber", "x_invoice_num", 13}, Length{"txtPONumber", "x_po_num", 14}),
    [](const auto& row) { return std::string(row.param.box); });

TEST_F(OpeningTheForm, GivesTheHolderTheLengthOfBothNamesWithoutRoomForTheBlank) {
    till.desktop.charge.setMaximumLength("x_first_name", 13);
    till.desktop.charge.setMaximumLength("x_last_name", 21);

    till.open();

    EXPECT_EQ(till.box("txtCardName").maxLength(), 34);
}

TEST_F(OpeningTheForm, OffersEveryStateWithItsNumber) {
    till.open();

    ComboBox& states = till.list("cboBillToState");
    ASSERT_EQ(states.count(), 58);
    EXPECT_EQ(states.itemText(0), "AL");
    EXPECT_EQ(states.itemText(57), "WY");
    for (int i = 0; i < states.count(); ++i) {
        EXPECT_EQ(states.itemData(i), 200 + i);
    }
    EXPECT_EQ(states.listIndex(), -1);
}

TEST_F(OpeningTheForm, OffersTheMonthsAndElevenYearsFromThisOneOn) {
    till.open();

    ComboBox& months = till.list("cboExpMonth");
    ASSERT_EQ(months.count(), 12);
    EXPECT_EQ(months.itemText(0), "01   January");
    EXPECT_EQ(months.itemText(11), "12   December");
    EXPECT_EQ(months.itemData(8), 9);
    ComboBox& years = till.list("cboExpYear");
    ASSERT_EQ(years.count(), 11);
    EXPECT_EQ(years.itemText(0), "2026");
    EXPECT_EQ(years.itemText(10), "2036");
    EXPECT_EQ(years.itemData(10), 2036);
    EXPECT_EQ(years.listIndex(), -1);
}

TEST_F(OpeningTheForm, ShowsDataPathAndLocationInTheStatusBar) {
    till.desktop.environment.dataPath = " c:\\zenda\\SHOP data ";
    till.desktop.environment.location = "main street";

    till.open();

    EXPECT_EQ(till.status(), "Data: C:\\Zenda\\Shop Data   Location: main street");
}

TEST_F(OpeningTheForm, ShowsTheCompanyWithItsOwnAmpersands) {
    till.setCompany("Name", "Oak & Elm");
    till.setCompany("City", "Springfield");
    till.setCompany("State", "IL");
    till.setCompany("Zip", "62701");
    till.setCompany("Phone", "555-0100");

    till.open();

    EXPECT_EQ(till.form().control<Label>("lblCompanyInfo").caption(),
              "Oak && Elm\r\nSpringfield, IL 62701\r\n555-0100");
}

TEST_F(OpeningTheForm, OffersTheLogViewerOnlyWhereItIsInstalled) {
    till.open();

    EXPECT_FALSE(till.form().control<MenuItem>("mnu_Report").visible());
    EXPECT_EQ(till.desktop.files.probed.back(), "C:\\Program Files\\Tollvane\\LogLens.exe");
}

TEST_F(OpeningTheForm, OffersTheLogViewerThatStandsInTheProgramsFolder) {
    till.desktop.files.folder = "C:\\";
    till.desktop.files.addFile("C:\\LogLens.exe");

    till.open();

    EXPECT_TRUE(till.form().control<MenuItem>("mnu_Report").visible());
}

TEST_F(OpeningTheForm, OffersTheLogViewerThatIsRunning) {
    till.desktop.files.addFile("C:\\Program Files\\Tollvane\\LogLens.exe", 32);

    till.open();

    EXPECT_TRUE(till.form().control<MenuItem>("mnu_Report").visible());
}

TEST_F(OpeningTheForm, HidesTheHoldersOwnAddress) {
    till.open();

    for (const char* name : {"txtStAddr", "txtZipCode", "Label6", "Label7"}) {
        EXPECT_FALSE(till.form().find(name).visible()) << name;
    }
}

TEST_F(OpeningTheForm, HidesTheBuffersAndTheStateName) {
    till.open();

    for (const char* name : {"txtMagStripe", "txtKbBuffer", "lblStateName"}) {
        EXPECT_FALSE(till.form().find(name).visible()) << name;
    }
}

TEST_F(OpeningTheForm, AcceptsOnlyDigitsAsCardNumber) {
    till.open();

    EXPECT_NE(till.box("txtCardNumber").windowStyle() & editstyle::digitsOnly, 0U);
    till.desktop.robot->click(till.form(), "txtCardNumber");
    till.desktop.robot->typeText("4a1 1-1x");
    EXPECT_EQ(till.text("txtCardNumber"), "4111");
    till.enter("txtCardNumber", "");
}

TEST_F(OpeningTheForm, LeavesTheFocusOnTheFirstField) {
    till.open();

    EXPECT_EQ(till.focus(), "optTransType");
}

class ExtendedData : public OpenTillTest {};

TEST_F(ExtendedData, IsShownAndHidden) {
    till.program().ShowExtendedData(true);
    for (const char* name : {"txtStAddr", "txtZipCode", "Label6", "Label7"}) {
        EXPECT_TRUE(till.form().find(name).visible()) << name;
    }

    till.program().ShowExtendedData(false);
    for (const char* name : {"txtStAddr", "txtZipCode", "Label6", "Label7"}) {
        EXPECT_FALSE(till.form().find(name).visible()) << name;
    }
}

TEST_F(ExtendedData, ShowingItChangesNothingElse) {
    till.enter("txtStAddr", "12 Elm Street");
    till.enter("txtZipCode", "12345");
    const bool enabled = till.box("txtStAddr").enabled();

    till.program().ShowExtendedData(true);

    EXPECT_EQ(till.text("txtStAddr"), "12 Elm Street");
    EXPECT_EQ(till.text("txtZipCode"), "12345");
    EXPECT_EQ(till.box("txtStAddr").enabled(), enabled);
    EXPECT_EQ(till.focus(), "optTransType");
}

class FormPosition : public TillTest {
protected:
    void store(std::uint32_t x, std::uint32_t y) {
        const char* key = "HKEY_LOCAL_MACHINE\\Software\\Norrow Programs\\Tollvane\\Window";
        till.desktop.registry.addNumber(key, "X", x);
        till.desktop.registry.addNumber(key, "Y", y);
    }
    void ini(const char* key, const char* value) {
        till.desktop.files.setIni("CARDAUTH.INI", "Form", key, value);
    }
    void expectAt(int left, int top) {
        till.open();
        EXPECT_EQ(till.form().left(), left);
        EXPECT_EQ(till.form().top(), top);
    }
};

TEST_F(FormPosition, IsTheCornerWithoutFileAndSettings) {
    expectAt(0, 0);
}

TEST_F(FormPosition, ComesFromTheFile) {
    ini("Left", "1500");
    ini("Top", "750");
    expectAt(1500, 750);
}

TEST_F(FormPosition, ComesFromTheSettingsWithoutAFile) {
    store(3000, 1200);
    expectAt(3000, 1200);
}

TEST_F(FormPosition, OfTheFileWinsOverTheSettings) {
    store(3000, 1200);
    ini("Left", "1500");
    ini("Top", "750");
    expectAt(1500, 750);
}

TEST_F(FormPosition, TakesAMissingKeyFromTheSettings) {
    store(3000, 1200);
    ini("Top", "750");
    expectAt(3000, 750);
}

TEST_F(FormPosition, TakesAKeyWithoutANumberAsZero) {
    store(3000, 1200);
    ini("Left", "left");
    ini("Top", "");
    expectAt(0, 0);
}

TEST_F(FormPosition, LeftBeyondTheScreenOpensAtTheCorner) {
    ini("Left", "15375");
    ini("Top", "750");
    expectAt(0, 0);
}

TEST_F(FormPosition, TopBeyondTheScreenOpensAtTheCorner) {
    ini("Left", "1500");
    ini("Top", "11535");
    expectAt(0, 0);
}

TEST_F(FormPosition, AtTheEdgeOfTheScreenIsKept) {
    ini("Left", "15360");
    ini("Top", "11520");
    expectAt(15360, 11520);
}

TEST_F(FormPosition, StoredLeftBeyondTheScreenBecomesZero) {
    store(20000, 1200);
    expectAt(0, 1200);
}

TEST_F(FormPosition, NumberThatNoScreenHasOpensAtTheCorner) {
    ini("Left", "99999999999999999999");
    ini("Top", "1e200");
    expectAt(0, 0);
}

} // namespace
} // namespace tollvane::test
