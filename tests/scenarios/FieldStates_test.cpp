// Which field is usable for which kind of transaction, and what its tool tip then says.

#include "entry/FieldStates.h"
#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

constexpr const char* kKinds[] = {"charge", "refund", "void"};

struct FieldRow {
    const char* control;
    bool charge;
    bool refund;
    bool voiding;

    bool usable(int type) const { return type == 0 ? charge : type == 1 ? refund : voiding; }
};

void PrintTo(const FieldRow& row, std::ostream* out) {
    *out << row.control;
}

/// With neither box ticked.
constexpr FieldRow kFields[] = {
    {"txtCardName", true, false, false},         {"txtCardNumber", true, true, false},
    {"txtCardCode", true, false, false},         {"cboExpMonth", true, false, false},
    {"cboExpYear", true, false, false},          {"txtAmount", true, true, true},
    {"chkTaxExempt", true, false, false},        {"txtTaxAmount", true, false, false},
    {"chkVoiceAuth", true, false, false},        {"txtAuthNum", false, false, false},
    {"txtTransactionNumber", false, true, true}, {"txtBillToStreet", true, false, false},
    {"txtBillToCity", true, false, false},       {"cboBillToState", true, false, false},
    {"txtBillToZip", true, false, false},
};

void expectState(Control& control, bool usable, const std::string& where) {
    using enum Colour::System;
    EXPECT_EQ(control.enabled(), usable) << where;
    EXPECT_EQ(control.tabStop(), usable) << where;
    if (control.kind() == ControlKind::textBox || control.kind() == ControlKind::comboBox) {
        EXPECT_EQ(control.locked(), !usable) << where;
        EXPECT_EQ(control.foreColour(), Colour(usable ? windowText : greyText)) << where;
        EXPECT_EQ(control.backColour(), Colour(usable ? window : buttonFace)) << where;
    }
}

class FieldState : public OpenTillTest, public ::testing::WithParamInterface<FieldRow> {};

TEST_P(FieldState, FollowsTheKindOfTransaction) {
    Control& control = till.form().find(GetParam().control);
    for (const int type : {1, 2, 0, 2, 1, 0}) {
        till.choose(type);
        ASSERT_EQ(till.program().TransType(), type);
        expectState(control, GetParam().usable(type),
                    std::string(GetParam().control) + " in a " + kKinds[type]);
    }
}

TEST_P(FieldState, IsThatOfAChargeWhenTheFormOpens) {
    expectState(till.form().find(GetParam().control), GetParam().charge, GetParam().control);
}

INSTANTIATE_TEST_SUITE_P(Of, FieldState, ::testing::ValuesIn(kFields),
                         [](const auto& row) { return std::string(row.param.control); });

class FieldStates : public OpenTillTest {
protected:
    void expectLaidOut(int type, const char* control, bool usable) {
        till.program().SetTransType(type);
        expectState(till.form().find(control), usable,
                    std::string(control) + " in a " + kKinds[type]);
    }
};

TEST_F(FieldStates, ApprovalCodeIsUsableOnlyForAChargeByTelephone) {
    till.check("chkVoiceAuth").setChecked(true);
    expectLaidOut(0, "txtAuthNum", true);
    expectLaidOut(1, "txtAuthNum", false);
    expectLaidOut(2, "txtAuthNum", false);
    expectLaidOut(0, "txtAuthNum", true);
}

TEST_F(FieldStates, TickingTheTelephoneBoxOpensTheApprovalCodeAtOnce) {
    till.press("chkVoiceAuth");
    expectState(till.box("txtAuthNum"), true, "ticked");

    till.press("chkVoiceAuth");
    expectState(till.box("txtAuthNum"), false, "unticked");
}

TEST_F(FieldStates, TaxIsUsableOnlyForAChargeThatIsNotExempt) {
    till.check("chkTaxExempt").setChecked(true);
    expectLaidOut(0, "txtTaxAmount", false);
    expectLaidOut(1, "txtTaxAmount", false);
    expectLaidOut(2, "txtTaxAmount", false);
    till.check("chkTaxExempt").setChecked(false);
    expectLaidOut(0, "txtTaxAmount", true);
}

TEST_F(FieldStates, TickingTaxExemptAndLayingTheChargeOutAgainLeavesTheTaxGreyedOut) {
    till.press("chkTaxExempt");

    till.program().LayoutForType();

    expectState(till.box("txtTaxAmount"), false, "txtTaxAmount");
}

TEST_F(FieldStates, SwitchingFromChargeToVoidLocksTheChargeFieldsAndKeepsTheirContents) {
    till.fillCharge();

    till.choose(2);

    for (const char* name :
         {"txtCardName", "txtCardNumber", "txtCardCode", "cboExpMonth", "cboExpYear",
          "txtTaxAmount", "txtBillToStreet", "txtBillToCity", "cboBillToState", "txtBillToZip"}) {
        expectState(till.form().find(name), false, name);
    }
    EXPECT_EQ(till.text("txtCardName"), "Mary Ann Smith");
    EXPECT_EQ(till.text("txtCardNumber"), "4111111111111111");
    EXPECT_EQ(till.text("txtCardCode"), "123");
    EXPECT_EQ(till.list("cboExpMonth").listIndex(), 2);
    EXPECT_EQ(till.list("cboExpYear").text(), "2027");
    EXPECT_EQ(till.text("txtTaxAmount"), "$1.50");
    EXPECT_EQ(till.text("txtBillToStreet"), "1 Oak Street");
    EXPECT_EQ(till.text("txtBillToCity"), "Springfield");
    EXPECT_EQ(till.list("cboBillToState").text(), "IL");
    EXPECT_EQ(till.text("txtBillToZip"), "62701");
    EXPECT_EQ(till.box("txtAmount").toolTip(), "Enter the amount of the original transaction. "
                                               "The original transaction will be voided.");
    EXPECT_EQ(till.box("txtTransactionNumber").toolTip(),
              "Enter the original transaction number here");
}

TEST_F(FieldStates, SettingTheTypeLaysTheFormOutAtOnce) {
    till.program().SetTransType(2);

    EXPECT_EQ(till.program().TransType(), 2);
    expectState(till.box("txtCardName"), false, "txtCardName");
}

TEST_F(FieldStates, UnknownTypeChangesNoField) {
    for (const int type : {3, -1}) {
        till.program().SetTransType(type);

        for (const FieldRow& row : kFields) {
            expectState(till.form().find(row.control), row.charge, row.control);
        }
    }
}

TEST_F(FieldStates, EnablingTheFormWithAnUnknownTypeSelectsNoOther) {
    for (const int type : {3, -1}) {
        till.choose(1);
        till.program().SetTransType(type);
        till.program().EnableForm(false);

        till.program().EnableForm(true);

        EXPECT_TRUE(till.kind(1).selected()) << type;
        EXPECT_EQ(till.program().TransType(), type);
        EXPECT_TRUE(till.button("cmdSubmit").enabled());
    }
}

TEST_F(FieldStates, ControlsOutsideTheTableKeepTheirStateInEveryType) {
    for (const int type : {1, 2, 0}) {
        till.choose(type);
        for (const char* name : {"txtEMail", "txtDescription", "txtInvoiceNumber", "txtPONumber"}) {
            EXPECT_TRUE(till.box(name).enabled()) << name << " in a " << kKinds[type];
        }
    }
}

struct TipRow {
    const char* what;
    int type;
    const char* amount;
    const char* transaction;
};

void PrintTo(const TipRow& row, std::ostream* out) {
    *out << row.what;
}

class ToolTips : public OpenTillTest, public ::testing::WithParamInterface<TipRow> {};

TEST_P(ToolTips, ExplainWhatToEnter) {
    till.choose(GetParam().type == 1 ? 2 : 1);
    till.choose(GetParam().type);

    EXPECT_EQ(till.box("txtAmount").toolTip(), GetParam().amount);
    EXPECT_EQ(till.box("txtTransactionNumber").toolTip(), GetParam().transaction);
}

INSTANTIATE_TEST_SUITE_P(
    For, ToolTips,
    ::testing::Values(TipRow{"Charge", 0, "Enter the amount to be charged.",
                             "The host transaction number is returned here"},
                      TipRow{"Refund", 1,
                             "Enter any amount up to the amount of the original transaction.",
                             "Enter the original transaction number here"},
                      TipRow{"Void", 2,
                             "Enter the amount of the original transaction. "
                             "The original transaction will be voided.",
                             "Enter the original transaction number here"}),
    [](const auto& row) { return std::string(row.param.what); });

class SettingAFieldState : public OpenTillTest {};

TEST_F(SettingAFieldState, SkipsWhatAControlLacks) {
    for (const char* name : {"chkTaxExempt", "cmdSubmit", "lblCardName", "fraCard", "sbrStatus",
                             "tmrDisplay", "mnuExit"}) {
        Control& control = till.form().find(name);
        SetFieldState(control, false);
        EXPECT_FALSE(control.enabled()) << name;
        SetFieldState(control, true);
        EXPECT_TRUE(control.enabled()) << name;
    }
}

TEST_F(SettingAFieldState, ColoursOnlyTextAndComboBoxes) {
    Label& label = till.form().control<Label>("lblCardName");
    label.setForeColour(Colour::rgb(1, 2, 3));
    CheckBox& check = till.check("chkTaxExempt");
    check.setBackColour(Colour::rgb(4, 5, 6));

    SetFieldState(label, true);
    SetFieldState(check, false);

    EXPECT_EQ(label.foreColour(), Colour::rgb(1, 2, 3));
    EXPECT_EQ(check.backColour(), Colour::rgb(4, 5, 6));
}

} // namespace
} // namespace tollvane::test
