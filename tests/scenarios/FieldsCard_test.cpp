// Card, holder, address and expiry fields while the operator works in them.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

class FieldsCard : public OpenTillTest {
protected:
    void goTo(const char* control) {
        till.form().find(control).setFocus();
        ASSERT_EQ(till.focus(), control);
    }
    void type(std::string_view keys) { till.desktop.robot->typeText(keys); }
    void paste(const char* text) { till.desktop.robot->paste(text); }
};

class FieldsAfterApproval : public FieldsCard, public ::testing::WithParamInterface<const char*> {
protected:
    /// Takes the focus there, in a state in which every one of the fields can have it.
    void goThere() {
        till.program().ShowExtendedData(true);
        till.box(GetParam()).setEnabled(true);
        till.box(GetParam()).setLocked(false);
        goTo(GetParam());
    }
};

TEST_P(FieldsAfterApproval, TheFirstKeyStartsANewEntry) {
    till.approveCharge();
    goThere();

    type("7");

    for (const char* name : {"txtCardName", "txtCardNumber", "txtCardCode", "txtBillToStreet",
                             "txtEMail", "txtDescription", "txtTransactionNumber"}) {
        EXPECT_EQ(till.text(name), name == std::string(GetParam()) ? "7" : "") << name;
    }
    EXPECT_EQ(till.text("txtAmount"), "$0.00");
    EXPECT_FALSE(till.program().TransactionApproved());
    EXPECT_EQ(till.button("cmdCancel").caption(), "Cancel");
}

TEST_P(FieldsAfterApproval, AKeyWithoutACharacterDoesSoToo) {
    till.approveCharge();
    goThere();

    till.desktop.robot->key(keycode::end);

    EXPECT_FALSE(till.program().TransactionApproved());
    EXPECT_EQ(till.text("txtEMail"), "");
}

TEST_P(FieldsAfterApproval, KeysThatOnlyAccompanyOthersKeepTheEntry) {
    constexpr int kShiftControlAlt[] = {16, 17, 18};
    till.approveCharge();
    goThere();

    for (int key : kShiftControlAlt) {
        till.box(GetParam()).on.keyDown(key, 0);
    }

    EXPECT_TRUE(till.program().TransactionApproved());
    EXPECT_EQ(till.text("txtCardNumber"), "4111111111111111");
}

TEST_P(FieldsAfterApproval, TheirNeighboursOnTheKeyboardStartANewEntry) {
    constexpr int kEnter = 13;
    constexpr int kPause = 19;
    for (int key : {kEnter, kPause, 15}) {
        till.approveCharge();
        goThere();

        till.box(GetParam()).on.keyDown(key, 0);

        EXPECT_FALSE(till.program().TransactionApproved()) << key;
    }
}

TEST_P(FieldsAfterApproval, BeforeAnApprovalKeysKeepTheEntry) {
    till.fillCharge();
    goThere();

    type("7");

    EXPECT_EQ(till.text("txtCardCode"), "123");
    EXPECT_EQ(till.text("txtAmount"), "$25.00");
}

INSTANTIATE_TEST_SUITE_P(In, FieldsAfterApproval,
                         ::testing::Values("txtCardName", "txtCardNumber", "txtDescription",
                                           "txtEMail", "txtBillToCity", "txtBillToStreet",
                                           "txtBillToZip", "txtStAddr", "txtTransactionNumber",
                                           "txtZipCode"),
                         [](const auto& row) { return std::string(row.param); });

TEST_F(FieldsCard, OtherFieldsKeepAFinishedEntry) {
    till.approveCharge();

    for (const char* name : {"txtInvoiceNumber", "txtPONumber", "txtCardCode"}) {
        goTo(name);
        type("7");
        EXPECT_TRUE(till.program().TransactionApproved()) << name;
    }
}

TEST_F(FieldsCard, NamesAreCapitalsWithoutTheTracksSigns) {
    till.program().ShowExtendedData(true);
    for (const char* name : {"txtCardName", "txtStAddr"}) {
        goTo(name);
        type("smith-jo^n|es 2");
        EXPECT_EQ(till.text(name), "SMITHJONES 2");

        till.box(name).select(0, -1);
        paste("o'neil-x|y");
        EXPECT_EQ(till.text(name), "O'NEILXY");
    }
}

TEST_F(FieldsCard, TheHoldersZipTakesDigitsApostropheAndBrackets) {
    till.program().ShowExtendedData(true);
    goTo("txtZipCode");

    type("1a2-3 (4)'5,\b6");

    EXPECT_EQ(till.text("txtZipCode"), "123(4)'6");
}

TEST_F(FieldsCard, TheCardNumberTakesDigitsOnly) {
    goTo("txtCardNumber");
    type("41-1 1x");
    EXPECT_EQ(till.text("txtCardNumber"), "4111");

    till.box("txtCardNumber").select(0, -1);
    paste("4111-1111 1111");
    EXPECT_EQ(till.text("txtCardNumber"), "411111111111");
}

TEST_F(FieldsCard, APastedCardNumberMakesFinishedCancelAgain) {
    till.approveCharge();
    ASSERT_EQ(till.button("cmdCancel").caption(), "Finished");
    goTo("txtCardNumber");

    paste("5");

    EXPECT_EQ(till.button("cmdCancel").caption(), "Cancel");
}

TEST_F(FieldsCard, TheCardCodeTakesDigitsOnly) {
    goTo("txtCardCode");
    type("1a2");
    EXPECT_EQ(till.text("txtCardCode"), "12");

    till.box("txtCardCode").select(0, -1);
    paste("9 8x7");
    EXPECT_EQ(till.text("txtCardCode"), "987");
}

struct Zip {
    const char* typed;
    const char* shown;
};

TEST_F(FieldsCard, ABillingZipOfNineCharactersGetsItsHyphen) {
    for (const Zip& zip : {Zip{"123456789", "12345-6789"}, Zip{"12345", "12345"}, Zip{"", ""},
                           Zip{"12345678", "12345678"}, Zip{"ab1 2cdef", "ab1 2-cdef"}}) {
        till.box("txtBillToZip").setText("");
        goTo("txtBillToZip");
        type(zip.typed);

        till.desktop.robot->tab();

        EXPECT_EQ(till.text("txtBillToZip"), zip.shown);
    }
}

TEST_F(FieldsCard, NameAndNumberTakeTheFocusBack) {
    for (const char* name : {"txtCardName", "txtCardNumber"}) {
        goTo(name);
        till.button("cmdModify").setFocus();
        EXPECT_EQ(till.focus(), name);
    }
}

TEST_F(FieldsCard, EnteringAFieldSelectsItsText) {
    for (const char* name : {"txtCardName", "txtBillToZip", "txtEMail", "txtInvoiceNumber",
                             "txtBillToStreet", "txtDescription"}) {
        till.enter(name, "abc");
        goTo(name);
        EXPECT_EQ(till.box(name).selLength(), 3) << name;
    }
}

TEST_F(FieldsCard, TelephoneAuthorisationOpensTheApprovalCode) {
    till.press("chkVoiceAuth");
    EXPECT_TRUE(till.box("txtAuthNum").enabled());
    EXPECT_FALSE(till.box("txtAuthNum").locked());

    till.press("chkVoiceAuth");
    EXPECT_FALSE(till.box("txtAuthNum").enabled());
    EXPECT_TRUE(till.box("txtAuthNum").locked());
}

TEST_F(FieldsCard, TheMonthsAreNumberedAndNamed) {
    ComboBox& months = till.list("cboExpMonth");
    ASSERT_EQ(months.count(), 12);
    EXPECT_EQ(months.itemText(0), "01   January");
    EXPECT_EQ(months.itemText(8), "09   September");
    EXPECT_EQ(months.itemText(11), "12   December");
    for (int i = 0; i < 12; ++i) {
        EXPECT_EQ(months.itemData(i), i + 1);
    }
}

TEST_F(FieldsCard, TheYearsRunFromThisOneOnForElevenYears) {
    ComboBox& years = till.list("cboExpYear");
    ASSERT_EQ(years.count(), 11);
    for (int i = 0; i < 11; ++i) {
        EXPECT_EQ(years.itemText(i), std::to_string(2026 + i));
        EXPECT_EQ(years.itemData(i), 2026 + i);
    }
    EXPECT_EQ(years.listIndex(), -1);
}

class FieldsYears : public TillTest {};

TEST_F(FieldsYears, TheYearOfTheComponentsDateIsSelected) {
    till.desktop.charge.script().setValue("ExpirationDate", std::string("3-2029"));

    till.open();

    EXPECT_EQ(till.list("cboExpYear").text(), "2029");
}

TEST_F(FieldsYears, ADateOutsideTheListSelectsNothing) {
    till.desktop.charge.script().setValue("ExpirationDate", std::string("3-2019"));

    till.open();

    EXPECT_EQ(till.list("cboExpYear").listIndex(), -1);
}

TEST_F(FieldsCard, ChoosingAMonthTellsTheComponentTheFirstOfTheMonth) {
    till.list("cboExpYear").setListIndex(3);
    till.desktop.record.forget();

    till.desktop.robot->chooseItem(till.form(), "cboExpMonth", 4);

    EXPECT_EQ(till.held("ExpirationDate"), "2029-5-1");
}

TEST_F(FieldsCard, WithoutAYearTheMonthIsOfThisYear) {
    till.desktop.robot->chooseItem(till.form(), "cboExpMonth", 4);

    EXPECT_EQ(till.held("ExpirationDate"), "2026-5-1");
}

TEST_F(FieldsCard, WithoutAMonthTheFirstOneIsTaken) {
    till.enterExpiry(5, 2029);
    till.list("cboExpMonth").setListIndex(-1);

    till.list("cboExpMonth").on.click();

    EXPECT_EQ(till.list("cboExpMonth").listIndex(), 0);
    EXPECT_EQ(till.held("ExpirationDate"), "2029-1-1");
    EXPECT_EQ(till.boxes(), std::vector<Message>());
}

TEST_F(FieldsCard, ChoosingAYearTellsTheComponentTheFirstOfTheMonth) {
    till.list("cboExpMonth").setListIndex(1);

    till.desktop.robot->chooseItem(till.form(), "cboExpYear", 2);

    EXPECT_EQ(till.held("ExpirationDate"), "2028-2-1");
}

TEST_F(FieldsCard, ChoosingAYearWithoutAMonthIsAnError) {
    till.desktop.robot->chooseItem(till.form(), "cboExpYear", 2);

    const std::vector<Message> boxes = till.boxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_NE(boxes[0].text.find("Error: 381"), std::string::npos) << boxes[0].text;
    EXPECT_EQ(till.list("cboExpMonth").listIndex(), -1) << "no month is chosen for the operator";
}

TEST_F(FieldsCard, WhatTheFormSetsItselfIsNotToldToTheComponent) {
    till.desktop.record.forget();

    till.program().ResetFields();

    EXPECT_EQ(till.chargeCalls(), std::vector<std::string>());
    EXPECT_EQ(till.list("cboExpMonth").listIndex(), 0);
    EXPECT_EQ(till.list("cboExpYear").listIndex(), 0);
}

} // namespace
} // namespace tollvane::test
