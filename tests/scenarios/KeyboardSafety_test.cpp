// A card reader's Enter must never submit, and Escape must never end the program.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

struct Place {
    const char* control;
    int index;
};

void PrintTo(const Place& place, std::ostream* out) {
    *out << place.control;
}

class EnterAndEscape : public OpenTillTest, public ::testing::WithParamInterface<Place> {
protected:
    /// Takes the focus to the control, in a type and state in which it can have it.
    void goThere() {
        till.fillCharge();
        Control& control = till.form().find(GetParam().control, GetParam().index);
        if (std::string(GetParam().control) == "txtAuthNum") {
            till.check("chkVoiceAuth").setChecked(true);
        } else if (std::string(GetParam().control) == "txtTransactionNumber") {
            till.choose(1);
        }
        control.setFocus();
        ASSERT_EQ(till.focus(), GetParam().control);
    }
    void expectNothingHappened() {
        EXPECT_TRUE(till.isOpen());
        EXPECT_EQ(till.boxes(), std::vector<Message>());
        EXPECT_TRUE(till.operations().empty());
        EXPECT_EQ(till.desktop.charge.cleared, 0) << "nothing was validated";
        EXPECT_EQ(till.desktop.charge.freed, 0);
        EXPECT_EQ(till.focus(), GetParam().control);
    }
};

TEST_P(EnterAndEscape, DoNothing) {
    goThere();

    till.desktop.robot->key(keycode::enter);
    expectNothingHappened();

    till.desktop.robot->key(keycode::escape);
    expectNothingHappened();
}

TEST_P(EnterAndEscape, HeldWithShiftOrControlDoNothingEither) {
    goThere();

    for (const int shift : {shiftmask::shift, shiftmask::control}) {
        till.desktop.robot->key(keycode::enter, shift);
        expectNothingHappened();
    }
}

INSTANTIATE_TEST_SUITE_P(In, EnterAndEscape,
                         ::testing::Values(Place{"optTransType", 0}, Place{"txtCardName", -1},
                                           Place{"txtCardNumber", -1}, Place{"txtCardCode", -1},
                                           Place{"cboExpMonth", -1}, Place{"cboExpYear", -1},
                                           Place{"txtAmount", -1}, Place{"chkTaxExempt", -1},
                                           Place{"txtTaxAmount", -1}, Place{"chkVoiceAuth", -1},
                                           Place{"txtAuthNum", -1},
                                           Place{"txtTransactionNumber", -1},
                                           Place{"txtBillToStreet", -1}, Place{"txtBillToCity", -1},
                                           Place{"cboBillToState", -1}, Place{"txtBillToZip", -1},
                                           Place{"txtEMail", -1}, Place{"txtDescription", -1},
                                           Place{"txtInvoiceNumber", -1}, Place{"txtPONumber", -1},
                                           Place{"cmdSubmit", -1}, Place{"cmdCancel", -1}),
                         [](const auto& row) { return std::string(row.param.control); });

class Spaces : public OpenTillTest {};

TEST_F(Spaces, PressTheButtonThatHasTheFocus) {
    till.fillCharge();
    till.button("cmdSubmit").setFocus();

    till.desktop.robot->key(keycode::space);

    EXPECT_EQ(till.operations(), (std::vector<std::string>{"AuthorizeAndCapture"}));
}

TEST_F(Spaces, TypedIntoAFieldStayThere) {
    till.box("txtDescription").setFocus();

    till.desktop.robot->typeText("a b");

    EXPECT_EQ(till.text("txtDescription"), "a b");
    EXPECT_TRUE(till.operations().empty());
}

} // namespace
} // namespace tollvane::test
