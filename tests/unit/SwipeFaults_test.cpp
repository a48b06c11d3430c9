// A key that cannot be remembered: outside a swipe it is typed all the same, within one it is not.

#include "tests/scenarios/FieldsTest.h"

namespace tollvane::test {
namespace {

class SwipeFaults : public FieldsTest {
protected:
    static constexpr long kNumber = 7;

    /// Types one key whose place in the keyboard buffer cannot be written.
    void typeUnremembered(char key) {
        till.desktop.faults.failAt(Port::controls, 1, kNumber);
        type({&key, 1});
        EXPECT_EQ(till.desktop.faults.failedCall(), "txtKbBuffer.setText");
        till.desktop.faults.clear();
        EXPECT_EQ(till.boxes().size(), 1U);
    }
};

TEST_F(SwipeFaults, OutsideASwipeLeaveTheKeyToTheField) {
    goTo("txtDescription");

    typeUnremembered('a');

    EXPECT_EQ(till.text("txtDescription"), "a");
}

TEST_F(SwipeFaults, WithinASwipeKeepTheKeyOutOfTheField) {
    goTo("txtDescription");
    type("%B4111");

    typeUnremembered('1');

    EXPECT_EQ(till.text("txtDescription"), "");
    pause();
    EXPECT_EQ(till.text("txtDescription"), "");
}

TEST_F(SwipeFaults, OfAPercentSignThatIsTypedLeaveItToThePause) {
    goTo("txtDescription");

    typeUnremembered('%');
    EXPECT_EQ(till.text("txtDescription"), "") << "it may be the start of a swipe";
    pause();

    EXPECT_EQ(till.text("txtDescription"), "%");
}

TEST_F(SwipeFaults, OfASlowSwipeKeepTheTimeForItsNextKey) {
    goTo("txtDescription");
    type("%B4111");
    till.desktop.robot->letTimePass(1500);
    typeUnremembered('1');

    till.desktop.robot->letTimePass(1500);
    type("1");

    EXPECT_EQ(till.text("txtDescription"), "");
}

TEST_F(SwipeFaults, OfASwipeThatWasBrokenOffEndWithThePause) {
    goTo("txtDescription");
    type("%B4111");
    typeUnremembered('1');

    till.desktop.robot->letTimePass(2500);
    type("x");

    EXPECT_EQ(till.text("txtDescription"), "x");
}

} // namespace
} // namespace tollvane::test
