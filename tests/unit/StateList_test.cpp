#include "settings/StateList.h"

#include "platform/Error.h"
#include "tests/desktop/TestDesktop.h"
#include "tests/scenarios/TracedForm.h"

#include <gtest/gtest.h>

namespace tollvane::test {
namespace {

TEST(StateList, ACodeThatIsNotInItRaisesAndLeavesTheFirstEntryChosen) {
    TestDesktop desk;
    TracedForm traced(*desk.forms);
    ComboBox& box = traced.get<ComboBox>("cboList");
    fillStateList(desk.program, box);
    box.setListIndex(7);

    try {
        selectState(box, "ZZ");
        ADD_FAILURE() << "nothing was raised";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 380);
    }

    EXPECT_EQ(box.listIndex(), 0);
}

TEST(StateList, TheFirstAndTheLastCodeAreFound) {
    TestDesktop desk;
    TracedForm traced(*desk.forms);
    ComboBox& box = traced.get<ComboBox>("cboList");
    fillStateList(desk.program, box);

    for (const int entry : {box.count() - 1, 0}) {
        selectState(box, box.itemText(entry));
        EXPECT_EQ(box.listIndex(), entry);
    }
}

} // namespace
} // namespace tollvane::test
