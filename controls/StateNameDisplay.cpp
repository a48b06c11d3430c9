#include "controls/StateNameDisplay.h"

#include "platform/Error.h"
#include "platform/Text.h"
#include "settings/StateList.h"

namespace tollvane {

StateNameDisplay::StateNameDisplay(ProgramFacts& program, MessageBoxes& messageBoxes, ComboBox& box,
                                   Label& label, Timer& timer)
    : program_(program), messageBoxes_(messageBoxes), box_(box), label_(label), timer_(timer) {}

void StateNameDisplay::show() noexcept {
    try {
        showName();
    } catch (...) {
        reportFailure(currentError());
    }
}

void StateNameDisplay::reportFailure(const Error& error) noexcept {
    try {
        messageBoxes_.show({.text = "There was an error populating the state choice box. \n\n"
                                    "Error = " +
                                    std::to_string(error.number()) + ", " + error.description() +
                                    ".",
                            .title = "Load Controls Error"});
    } catch (...) {
        // A box that cannot be shown leaves the operator with the list as it is.
    }
}

void StateNameDisplay::showName() {
    if (box_.listIndex() < 0) {
        return;
    }
    const std::string name = selectedStateName(program_, box_);
    label_.setCaption(withoutAccessKeys(name));
    box_.setToolTip(name);
    const Bounds box = box_.bounds();
    Bounds place = label_.bounds();
    place.left = box.left + box.width / 2 - place.width / 2;
    place.top = box.top - place.height;
    label_.setBounds(place);
    label_.setVisible(true);
    timer_.setEnabled(true); // anew, when it runs
}

void StateNameDisplay::hide() {
    label_.setVisible(false);
    timer_.setEnabled(false);
}

} // namespace tollvane
