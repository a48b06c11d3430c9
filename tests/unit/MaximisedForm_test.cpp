// The transaction form has no maximise button, yet a window manager may maximise any window. In
// memory it can be had at will.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

class MaximisedForm : public OpenTillTest {};

TEST_F(MaximisedForm, StoresNoPositionWhenItCloses) {
    till.desktop.robot->setWindowState(till.form(), WindowState::maximised);

    till.desktop.robot->closeBox(till.form());

    const char* key = "HKEY_LOCAL_MACHINE\\Software\\Norrow Programs\\Tollvane\\Window";
    EXPECT_EQ(till.desktop.registry.number(key, "X"), std::nullopt);
    EXPECT_EQ(till.desktop.registry.number(key, "Y"), std::nullopt);
    EXPECT_EQ(till.desktop.charge.freed, 1);
}

} // namespace
} // namespace tollvane::test
