// The billing state and its full name.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

class FieldsState : public OpenTillTest {
protected:
    void choose(int entry) { till.desktop.robot->chooseItem(till.form(), "cboBillToState", entry); }
    Label& name() { return till.form().control<Label>("lblStateName"); }
    ComboBox& states() { return till.list("cboBillToState"); }
};

TEST_F(FieldsState, OffersFiftyEightCodesWithTheirNumbers) {
    ASSERT_EQ(states().count(), 58);
    EXPECT_EQ(states().itemText(0), "AL");
    EXPECT_EQ(states().itemText(57), "WY");
    EXPECT_EQ(states().itemText(3), "AS");
    EXPECT_EQ(states().itemText(39), "MP");
    for (int i = 0; i < 58; ++i) {
        EXPECT_EQ(states().itemData(i), 200 + i);
    }
    EXPECT_EQ(states().listIndex(), -1);
}

TEST_F(FieldsState, ShowsTheFullNameAboveTheBoxAndAsItsToolTip) {
    choose(5);
    EXPECT_EQ(states().text(), "CA");
    EXPECT_EQ(name().caption(), "Califormia");
    EXPECT_EQ(states().toolTip(), "Califormia");
    EXPECT_TRUE(name().visible());

    choose(9);
    EXPECT_EQ(states().text(), "DC");
    EXPECT_EQ(name().caption(), "Distrcit of Columbia");
    EXPECT_EQ(states().toolTip(), "Distrcit of Columbia");
}

TEST_F(FieldsState, ShowsTheNameOfTheFirstOneToo) {
    choose(0);

    EXPECT_TRUE(name().visible());
    EXPECT_EQ(states().toolTip(), name().caption());
    EXPECT_EQ(name().caption(), till.desktop.program.strings.at(400));
}

TEST_F(FieldsState, CentresTheNameDirectlyAboveTheBox) {
    choose(5);

    const Bounds box = states().bounds();
    const Bounds label = name().bounds();
    EXPECT_EQ(label.top, box.top - label.height);
    EXPECT_EQ(label.left, box.left + box.width / 2 - label.width / 2);
}

TEST_F(FieldsState, HidesTheNameWhenItsTimeIsOver) {
    choose(5);

    till.desktop.robot->letTimePass(3200);

    EXPECT_FALSE(name().visible());
    EXPECT_FALSE(till.form().control<Timer>("tmrDisplay").enabled());
    EXPECT_EQ(states().toolTip(), "Califormia");
}

TEST_F(FieldsState, AnotherChoiceStartsTheTimeAnew) {
    till.form().control<Timer>("tmrDisplay").setInterval(1000);
    choose(5);
    till.desktop.robot->letTimePass(700);

    choose(9);
    till.desktop.robot->letTimePass(700);
    EXPECT_TRUE(name().visible());

    till.desktop.robot->letTimePass(500);
    EXPECT_FALSE(name().visible());
}

TEST_F(FieldsState, ShowsNothingWhenTheChoiceIsCleared) {
    choose(5);
    till.desktop.robot->letTimePass(3200);

    till.program().ClearText();

    EXPECT_EQ(states().listIndex(), -1);
    EXPECT_FALSE(name().visible());
}

TEST_F(FieldsState, ShowsNothingWithoutAChoice) {
    states().setListIndex(-1);

    states().on.click();

    EXPECT_FALSE(name().visible());
    EXPECT_EQ(till.boxes(), std::vector<Message>());
}

TEST_F(FieldsState, ReportsANameThatIsMissing) {
    till.desktop.program.strings.erase(405);

    choose(5);

    const std::vector<Message> boxes = till.boxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "Load Controls Error");
    EXPECT_EQ(boxes[0].text.substr(0, boxes[0].text.find("326")),
              "There was an error populating the state choice box. \n\nError = ");
    EXPECT_EQ(boxes[0].text.back(), '.');
    EXPECT_EQ(boxes[0].icon, MessageIcon::information);
}

} // namespace
} // namespace tollvane::test
