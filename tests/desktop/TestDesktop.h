#pragma once

#include "platform/Desktop.h"
#include "tests/desktop/FakeAutomation.h"
#include "tests/desktop/FakeCharge.h"
#include "tests/desktop/FakeClock.h"
#include "tests/desktop/FakeEnvironment.h"
#include "tests/desktop/FakeFiles.h"
#include "tests/desktop/FakeLocale.h"
#include "tests/desktop/FakePrinters.h"
#include "tests/desktop/FakeProgramFacts.h"
#include "tests/desktop/FakeRegistry.h"
#include "tests/desktop/FakeShell.h"
#include "tests/desktop/FakeSurroundings.h"
#include "tests/desktop/FaultPlan.h"
#include "tests/desktop/RecordedMessageBoxes.h"
#include "tests/desktop/TestForms.h"

#include <memory>

namespace tollvane::test {

/// A whole desktop for one test: the forms that the test program was linked with (real windows or
/// in memory), a user, and fakes of everything else. The components are registered and willing: an
/// operator is signed in, has the privilege, and charges are approved.
class TestDesktop {
public:
    /// In the header, since each test program brings its own makeForms.
    TestDesktop() {
        const TestFormsSetup setup{escaped, clock, faults};
        forms = makeForms(setup);
        robot = makeRobot(*forms, setup);
        useForms_ = forms.get();
        registerComponents();
    }
    TestDesktop(const TestDesktop&) = delete;
    TestDesktop& operator=(const TestDesktop&) = delete;

    /// The ports as the program gets them.
    Desktop desktop();

    /// Puts another implementation in the place of a fake; it must outlive this object.
    void use(Forms& port) { useForms_ = &port; }
    void use(MessageBoxes& port) { useMessageBoxes_ = &port; }
    void use(Registry& port) { useRegistry_ = &port; }
    void use(Automation& port) { useAutomation_ = &port; }
    void use(Files& port) { useFiles_ = &port; }
    void use(ProgramFacts& port) { useProgram_ = &port; }
    void use(Locale& port) { useLocale_ = &port; }
    void use(Clock& port) { useClock_ = &port; }
    void use(Screen& port) { useScreen_ = &port; }
    void use(Shell& port) { useShell_ = &port; }
    void use(Printers& port) { usePrinters_ = &port; }

    /// Fails the running test when something escaped a handler, a planned answer was not asked
    /// for, or a registry key stayed open.
    void expectNothingLeftOver() const;

    FaultPlan faults;
    EscapedErrors escaped;
    FakeClock clock;
    RecordedMessageBoxes boxes{faults};
    FakeRegistry registry{faults};
    FakeFiles files{faults};
    FakeLocale locale{faults};
    FakeProgramFacts program{faults};
    FakeScreen screen;
    FakeMouse mouse;
    FakeRandom random;
    FakeBeeper beeper;
    FakePrinters printers{faults};
    FakeShell shell{faults};

    AutomationRecord record{faults};
    FakeAutomation automation{faults};
    FakeCharge charge{record, locale};
    FakeChecker checker{record};
    FakeHostData hostData{record};
    FakeEnvironment environment{record};

    std::unique_ptr<Forms> forms;
    std::unique_ptr<Robot> robot;

private:
    void registerComponents();

    Forms* useForms_ = nullptr;
    MessageBoxes* useMessageBoxes_ = &boxes;
    Registry* useRegistry_ = &registry;
    Automation* useAutomation_ = &automation;
    Files* useFiles_ = &files;
    ProgramFacts* useProgram_ = &program;
    Locale* useLocale_ = &locale;
    Clock* useClock_ = &clock;
    Screen* useScreen_ = &screen;
    Shell* useShell_ = &shell;
    Printers* usePrinters_ = &printers;
};

} // namespace tollvane::test
