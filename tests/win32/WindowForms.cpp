#include "tests/win32/WindowForms.h"

#include "tests/win32/WindowRobot.h"

namespace tollvane::test {

WindowForms::WindowForms(const TestFormsSetup& setup)
    : ui_(GetModuleHandleA(nullptr),
          [&escaped = setup.escaped](const Error& error) { escaped.note("a window", error); }) {}

std::unique_ptr<Form> WindowForms::create(const FormDescription& description) {
    return forms_.create(description);
}

std::unique_ptr<Forms> makeForms(const TestFormsSetup& setup) {
    return std::make_unique<WindowForms>(setup);
}

std::unique_ptr<Robot> makeRobot(Forms& forms, const TestFormsSetup& setup) {
    return std::make_unique<WindowRobot>(dynamic_cast<WindowForms&>(forms), setup.clock);
}

} // namespace tollvane::test
