#include "tests/desktop/TestDesktop.h"

#include <gtest/gtest.h>

namespace tollvane::test {

void TestDesktop::registerComponents() {
    automation.registerProgId("ZendaSwiftill.Tollvane", [this] { return charge.object(); });
    automation.registerProgId("prjHabitat.clsHabitatI", [this] { return environment.object(); });
    automation.registerProgId("dcZenda32.dcclsZenda32", [this] { return hostData.object(); });
    automation.registerClass(FakeChecker::classId, FakeChecker::interfaceId,
                             [this] { return checker.object(); });
}

Desktop TestDesktop::desktop() {
    return {
        *useForms_,  *useMessageBoxes_, *useRegistry_, *useAutomation_, *useFiles_, *useProgram_,
        *useLocale_, *useClock_,        *useScreen_,   mouse,           random,     beeper,
        *useShell_,  *usePrinters_};
}

void TestDesktop::expectNothingLeftOver() const {
    for (const std::string& error : escaped.noted()) {
        ADD_FAILURE() << "an error left an event handler: " << error;
    }
    EXPECT_EQ(boxes.openAnswers(), 0U) << "planned answers that no box asked for";
    EXPECT_EQ(registry.openKeys(), 0U) << "registry keys that were not closed";
    EXPECT_EQ(printers.openJobs(), 0U) << "print jobs that were not given back";
}

} // namespace tollvane::test
