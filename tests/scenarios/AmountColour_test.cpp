// The red of a negative amount, which outlasts what else colours the boxes.

#include "tests/scenarios/ValidationTest.h"

namespace tollvane::test {
namespace {

class NegativeAmount : public ChargeTest {
protected:
    void SetUp() override {
        ChargeTest::SetUp();
        till.enter("txtAmount", "($25.00)");
        till.enter("txtTaxAmount", "($30.00)");
        till.program().LayoutForType();
    }
    void expectRed(const char* box) {
        EXPECT_EQ(till.box(box).foreColour(), Colour::rgb(255, 0, 0)) << box;
    }
};

TEST_F(NegativeAmount, StaysRedAfterADecline) {
    expectRed("txtAmount");
    till.desktop.charge.answer(declined(2, 2, "Declined."));

    till.submit();

    ASSERT_EQ(till.boxes().at(0).title, "Authorization Failed");
    expectRed("txtAmount");
    expectRed("txtTaxAmount");
}

TEST_F(NegativeAmount, StaysRedWhenTheFormIsSwitchedOffAndOn) {
    till.program().EnableForm(false);
    till.program().EnableForm(true);

    expectRed("txtAmount");
    expectRed("txtTaxAmount");
}

TEST_F(NegativeAmount, StaysRedInEveryTypeThatHasTheBox) {
    for (const int type : {1, 2, 0}) {
        till.choose(type);
        expectRed("txtAmount");
    }
    expectRed("txtTaxAmount");
    till.choose(2);
    EXPECT_EQ(till.box("txtTaxAmount").foreColour(), Colour(Colour::System::greyText));
}

TEST_F(NegativeAmount, IsNoLongerRedOnceItIsPositive) {
    till.enter("txtAmount", "$25.00");
    till.program().LayoutForType();

    EXPECT_EQ(till.box("txtAmount").foreColour(), Colour(Colour::System::windowText));
}

} // namespace
} // namespace tollvane::test
