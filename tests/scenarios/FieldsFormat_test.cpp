// Text boxes whose typing is shaped by a format type.

#include "controls/AutoFormatTextbox.h"
#include "tests/scenarios/ScenarioTest.h"
#include "tests/scenarios/Till.h"
#include "tests/scenarios/TracedForm.h"

namespace tollvane::test {
namespace {

class FieldsFormat : public ScenarioTest {
protected:
    void SetUp() override {
        format.SetTextBox(box());
        traced.show();
    }
    TextBox& box() { return traced.box("txtFirst"); }
    /// Enters the box, empty, with a format type.
    void enter(std::int32_t type) {
        format.SetFormatType(type);
        traced.box("txtSecond").setFocus();
        box().setText("");
        box().setFocus();
    }
    std::string typed(std::string_view keys) {
        robot.typeText(keys);
        return box().text();
    }

    TracedForm traced{*desk.forms};
    AutoFormatTextbox format{desk.locale};
};

TEST_F(FieldsFormat, KeepsItsBoxAndItsType) {
    EXPECT_EQ(format.TextBox(), &box());
    EXPECT_EQ(format.FormatType(), formattype::none);

    format.SetFormatType(formattype::properCase);

    EXPECT_EQ(format.FormatType(), formattype::properCase);
}

TEST_F(FieldsFormat, NoneLeavesTextAsItIsTyped) {
    enter(formattype::none);
    EXPECT_EQ(typed("Ab 1.2.3-%"), "Ab 1.2.3-%");
}

TEST_F(FieldsFormat, LowerCaseChangesLetters) {
    enter(formattype::lowerCase);
    EXPECT_EQ(typed("Ab1"), "ab1");
}

TEST_F(FieldsFormat, UpperCaseChangesLetters) {
    enter(formattype::upperCase);
    EXPECT_EQ(typed("Ab1"), "AB1");
}

TEST_F(FieldsFormat, DigitsOnlyTakesNothingElse) {
    enter(formattype::digitsOnly);
    EXPECT_EQ(typed("1a2-3."), "123");

    robot.paste("4x5");
    EXPECT_EQ(box().text(), "12345");
}

TEST_F(FieldsFormat, ProperCaseCapitalisesAddresses) {
    enter(formattype::properCase);
    EXPECT_EQ(typed("123 main st."), "123 Main St.");

    enter(formattype::properCase);
    EXPECT_EQ(typed("45 nw"), "45 NW");
}

TEST_F(FieldsFormat, ProperCaseCapitalisesTheLetterBehindAnApostrophe) {
    enter(formattype::properCase);
    EXPECT_EQ(typed("o'neil"), "O'Neil");
}

TEST_F(FieldsFormat, ProperCaseStartsWithACapitalWhenTheFocusArrives) {
    enter(formattype::properCase);
    typed("x");
    traced.box("txtSecond").setFocus();
    box().setText("old text");

    box().setFocus();
    EXPECT_EQ(box().selLength(), 8);

    EXPECT_EQ(typed("elm"), "Elm");
}

TEST_F(FieldsFormat, ProperCaseLeavesTheLetterBehindABackspaceAsItIs) {
    enter(formattype::properCase);
    EXPECT_EQ(typed("de V\bv"), "De v");
}

TEST_F(FieldsFormat, DecimalNumberKeepsToItsPlaces) {
    enter(formattype::decimalNumber);
    EXPECT_EQ(typed("12.345.6"), "12.34");

    robot.key(keycode::home);
    EXPECT_EQ(typed("9"), "912.34");
}

TEST_F(FieldsFormat, DecimalNumberFollowsTheLocaleOfTheSystem) {
    desk.locale.system = localeid::germany;
    enter(formattype::decimalNumber);

    EXPECT_EQ(typed("12,345,6"), "12,34");
}

TEST_F(FieldsFormat, DecimalNumberWithoutANumberOfPlacesTakesNone) {
    desk.locale.set(0x19, "x");
    enter(formattype::decimalNumber);

    EXPECT_EQ(typed("12.34"), "12.");
}

TEST_F(FieldsFormat, DecimalNumberWithoutAKnownNumberOfPlacesTakesNone) {
    desk.locale.remove(0x19);
    enter(formattype::decimalNumber);

    EXPECT_EQ(typed("12.34"), "12.");
}

TEST_F(FieldsFormat, NothingTakesAStyleBitAway) {
    enter(formattype::lowerCase);
    for (const std::int32_t type :
         {formattype::none, formattype::properCase, formattype::decimalNumber}) {
        enter(type);
        EXPECT_EQ(typed("AB"), "ab") << type;
    }
    EXPECT_NE(box().windowStyle() & editstyle::lowerCase, 0U);
}

TEST_F(FieldsFormat, AddsOneStyleBitAtATime) {
    const std::uint32_t plain = box().windowStyle();
    for (const std::int32_t type :
         {formattype::none, formattype::properCase, formattype::decimalNumber, 6, -1}) {
        format.SetFormatType(type);
        EXPECT_EQ(box().windowStyle(), plain) << type;
    }

    format.SetFormatType(formattype::digitsOnly);

    EXPECT_EQ(box().windowStyle(), plain | editstyle::digitsOnly);
}

TEST_F(FieldsFormat, LeavesABoxThatItIsNoLongerAttachedTo) {
    AutoFormatTextbox other(desk.locale);
    other.SetTextBox(traced.box("txtThird"));
    other.SetFormatType(formattype::properCase);
    other.SetTextBox(traced.box("txtSecond"));
    traced.box("txtThird").setFocus();

    robot.typeText("a");

    EXPECT_EQ(traced.box("txtThird").text(), "a");
}

TEST_F(FieldsFormat, LeavesPastedTextToABoxThatItIsNoLongerAttachedTo) {
    AutoFormatTextbox other(desk.locale);
    other.SetTextBox(traced.box("txtThird"));
    other.SetTextBox(traced.box("txtSecond"));
    other.SetFormatType(formattype::digitsOnly);
    traced.box("txtThird").setFocus();

    robot.paste("a1");

    EXPECT_EQ(traced.box("txtThird").text(), "a1");
}

TEST_F(FieldsFormat, WithoutABoxKeepsItsType) {
    AutoFormatTextbox other(desk.locale);

    other.SetFormatType(formattype::upperCase);

    EXPECT_EQ(other.FormatType(), formattype::upperCase);
    EXPECT_EQ(other.TextBox(), nullptr);
}

TEST_F(FieldsFormat, RunsBehindTheBoxesOwnHandlers) {
    enter(formattype::properCase);
    traced.changeKey["txtFirst_KeyPress"] = [](int& code) { code = code == 'x' ? 0 : code; };

    EXPECT_EQ(typed("xa xb"), "A B");
}

/// The boxes of the transaction form that follow the operator's setting.
class FieldsFormatChoice : public TillTest, public ::testing::WithParamInterface<const char*> {
protected:
    void store(std::uint32_t type) {
        till.desktop.registry.addNumber(
            "HKEY_LOCAL_MACHINE\\Software\\Norrow Programs\\Tollvane\\Options", "FormatType", type);
    }
    std::string typed(std::string_view keys) {
        TextBox& box = till.box(GetParam());
        till.box("txtEMail").setFocus();
        box.setText("");
        box.setFocus();
        till.desktop.robot->typeText(keys);
        return box.text();
    }
};

TEST_P(FieldsFormatChoice, IsAppliedAtTheStart) {
    store(2);
    till.open();

    EXPECT_EQ(typed("elm st"), "ELM ST");
}

TEST_P(FieldsFormatChoice, IsAppliedWhenItChanges) {
    store(0);
    till.open();
    EXPECT_EQ(typed("elm st"), "elm st");

    store(3);
    till.program().ApplyAutoFormat();

    EXPECT_EQ(typed("elm st"), "Elm St");
}

INSTANTIATE_TEST_SUITE_P(In, FieldsFormatChoice,
                         ::testing::Values("txtBillToStreet", "txtBillToCity", "txtDescription"),
                         [](const auto& row) { return std::string(row.param); });

} // namespace
} // namespace tollvane::test
