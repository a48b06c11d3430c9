#include "tests/proof/faults/Scenario.h"

#include "tests/desktop/memory/MemoryForms.h"

#include <ostream>

namespace tollvane::test {

void PrintTo(const Scenario& scenario, std::ostream* out) {
    *out << scenario.name;
}

Rig::Rig()
    : till([this](TestDesktop& desktop) {
          ports = std::make_unique<FaultyPorts>(desktop, sabotage);
      }) {}

void Rig::step(const char* sentence, const std::function<void()>& work) {
    if (till.isOpen()) {
        sabotage.enter(sentence);
        work();
    }
}

void Rig::inDialog(const char* sentence, const std::function<void(Form& form)>& work) {
    robot().planModal([this, sentence, work](Form& form) {
        sabotage.enter(sentence);
        work(form);
        if (form.isOpen()) {
            robot().click(form, "cmdCancel");
        }
    });
}

void Rig::choose(const char* sentence, std::string_view menuItem) {
    step(sentence, [&] { robot().chooseMenu(till.form(), menuItem); });
}

void Rig::type(std::string_view box, std::string_view text) {
    robot().click(till.form(), box);
    till.box(box).select(0, -1);
    robot().typeText(text);
}

void Rig::fillCharge() {
    till.fillCharge();
    if (till.desktop.locale.user == localeid::germany) {
        till.enter("txtAmount", "25,00");
        till.enter("txtTaxAmount", "1,50");
    }
}

void Rig::dropPlans() {
    dynamic_cast<MemoryForms&>(*till.desktop.forms).modalPlans.clear();
}

} // namespace tollvane::test
